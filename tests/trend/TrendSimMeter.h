// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QTemporaryDir>

namespace lorvane::test {

/// A standard meter written by the simulator into a temporary folder: `days` days from
/// 2024-03-04 at `intervalMinutes`, `points` snapshot points.
class TrendSimMeter
{
public:
    TrendSimMeter(int days, int intervalMinutes, int points, quint64 seed = 1);

    const QString& path() const { return m_path; }
    LogFileEntry entry() const;
    /// The snapshot data ids the file holds, ascending.
    QList<qint32> dataIds() const;
    /// Rows of `dataId` between `from` and `to` (both included), counted by one join of the
    /// hour tables: the reference the loader is checked against.
    qint64 rowsOf(qint32 dataId, const QDateTime& from, const QDateTime& to) const;
    /// The same join hour by hour: the hours that hold rows of `dataId`, with their count.
    QMap<QDateTime, qint64> hoursOf(qint32 dataId, const QDateTime& from,
                                    const QDateTime& to) const;
    static QDateTime at(int day, int hour, int minute = 0);

private:
    QTemporaryDir m_dir;
    QString m_path;
};

} // namespace lorvane::test
