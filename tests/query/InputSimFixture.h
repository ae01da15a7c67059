// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A simulated meter and a scratch database for the status log view tests.
#include "platform/LoadProgress.h"
#include "query/engine/GridTable.h"
#include "query/engine/QueryContext.h"
#include "store/StampedTime.h"
#include "store/TempQueryDatabase.h"
#include "support/TestMeters.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace lorvane::test {

inline QDateTime simTime(const char* text)
{
    return StampedTime::parseClock(QString::fromLatin1(text));
}

struct SimMeters
{
    QTemporaryDir dir;
    std::unique_ptr<TempQueryDatabase> scratch;
    SilentProgress progress;

    SimMeters() { scratch = scratchDatabase(dir, 4343); }

    /// A standard meter of 2024-03-04 and 2024-03-05 (seed `seed`) at `name`.DB.
    QString meter(const QString& name, int seed = 3)
    {
        const QString out = dir.filePath(name + QStringLiteral(".DB"));
        simulate(QStringList{QStringLiteral("--out"), out, QStringLiteral("--seed"),
                             QString::number(seed), QStringLiteral("--hardware-name"), name} +
                 smallMeterArguments());
        return out;
    }

    QueryContext context(const QStringList& paths, const char* start = "2024-03-04 00:00:00",
                         const char* end = "2024-03-05 23:59:59")
    {
        QueryContext c;
        c.scratch = scratch.get();
        c.progress = &progress;
        for (const QString& path : paths) {
            LogFileEntry e;
            e.dbPath = path;
            e.deviceTypeId = 3;
            e.hardwareName = QFileInfo(path).completeBaseName();
            e.used = true;
            e.deviceIndex = static_cast<qint32>(c.files.size());
            c.files << e;
        }
        c.start = simTime(start);
        c.end = simTime(end);
        return c;
    }
};

/// The cells of one column of a grid, by heading (the first column of that heading).
inline QStringList column(const GridTable& grid, const QString& heading)
{
    const int at = static_cast<int>(grid.columns.indexOf(heading));
    QStringList out;
    for (const QStringList& row : grid.rows)
        out << (at >= 0 ? row.at(at) : QString());
    return out;
}

} // namespace lorvane::test
