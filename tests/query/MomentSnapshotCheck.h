// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The check the limit, input, relay and flicker view tests share: the snapshot grid they show
// beside their own log, against the snapshot rows of the meter file read with plain SQL.
#include "platform/SqliteDatabase.h"
#include "query/engine/GridTable.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace lorvane::test {

/// The meter file's snapshot instants in [from, to] ("YYYY-MM-DD HH:MM:SS") in time order,
/// each with the value of `dataId`.
inline QList<std::pair<QString, double>> fileSnapshots(const QString& path, qint64 dataId,
                                                       const char* from, const char* to)
{
    SqliteDatabase meter(path, SqliteDatabase::Mode::ReadOnly);
    QStringList hours;
    SqlStatement tables = meter.prepare(
        QStringLiteral("SELECT substr(name, 18) FROM sqlite_master WHERE type = 'table' AND "
                       "name LIKE 'HistLogTimeIndex\\_%' ESCAPE '\\'"));
    while (tables.next())
        hours << tables.text(0);
    QStringList parts;
    for (const QString& hour : hours) {
        parts << QStringLiteral("SELECT T.[Date/Time] AS t, V.[Value] AS v FROM "
                                "[HistLogTimeIndex_%1] AS T JOIN [HistLog_%1] AS V ON "
                                "V.[Date/TimeIndex] = T.[Date/TimeIndex] WHERE V.[DataID] = %2 "
                                "AND T.[Date/Time] BETWEEN '%3' AND '%4'")
                     .arg(hour)
                     .arg(dataId)
                     .arg(QLatin1String(from), QLatin1String(to));
    }
    QList<std::pair<QString, double>> out;
    if (parts.isEmpty())
        return out;
    SqlStatement rows =
        meter.prepare(parts.join(QStringLiteral(" UNION ALL ")) + QStringLiteral(" ORDER BY t"));
    while (rows.next())
        out.append({rows.text(0), rows.real(1)});
    return out;
}

/// Expects `grid` to be the snapshot grid of `ids` (ascending as text) of the meter at
/// `path`, device number `device` (its position plus one) of type `type` named `name`, over
/// [from, to], in time order (`descending` for newest first).
inline void expectMomentSnapshot(const GridTable& grid, const QString& path, int device, int type,
                                 const QString& name, const QList<qint64>& ids, const char* from,
                                 const char* to, bool descending = false)
{
    EXPECT_EQ(grid.caption, QStringLiteral("Show Snapshots"));
    QStringList columns{QStringLiteral("Date/Time"), QStringLiteral("DTmode"),
                        QStringLiteral("Record Type"), QStringLiteral("Profile Index")};
    QStringList first{QStringLiteral("Device Index/Type/Data ID"), QString(), QString(), QString()};
    for (qint64 id : ids) {
        columns << QStringLiteral("%1_%2").arg(device).arg(id);
        first << QStringLiteral("%1/%2/%3").arg(device).arg(type).arg(id);
    }
    EXPECT_EQ(grid.columns, columns);
    ASSERT_EQ(grid.headingRows.size(), 2);
    EXPECT_EQ(grid.headingRows.at(0), first);
    ASSERT_EQ(grid.headingRows.at(1).size(), columns.size());
    for (qsizetype c = 4; c < columns.size(); ++c)
        EXPECT_TRUE(grid.headingRows.at(1).at(c).endsWith(QStringLiteral(" - ") + name))
            << grid.headingRows.at(1).at(c).toStdString();

    const QList<std::pair<QString, double>> expected = fileSnapshots(path, ids.first(), from, to);
    ASSERT_GT(expected.size(), 1);
    ASSERT_EQ(grid.rows.size(), expected.size());
    const auto oldest = descending ? grid.rows.last() : grid.rows.first();
    const auto newest = descending ? grid.rows.first() : grid.rows.last();
    EXPECT_EQ(oldest.at(4), QString::number(expected.first().second, 'f', 2));
    EXPECT_EQ(newest.at(4), QString::number(expected.last().second, 'f', 2));
    EXPECT_NE(oldest.at(0), newest.at(0));
}

} // namespace lorvane::test
