// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace lorvane {

class MeterDatabase;

/// One log node of the meter tree: a master table with records, and the span of its records.
struct LogTreeEntry
{
    int logKind = 0;
    QString label;      ///< "SnapShot Log", "Limits Log" ...
    QString firstStart; ///< `StartDate/Time` of the first row, as stored
    QString lastEnd;    ///< `EndDate/Time` of the last row, as stored
    qint64 records = 0; ///< records of all its rows

    /// "From {first start} to {last end}"
    QString text() const;
};

/// The logs of a meter as its tree lists them: every master table from snapshots to system
/// events that has rows with records.
class LogTree
{
public:
    /// Throws Fault with the running step on an engine failure.
    static QList<LogTreeEntry> read(MeterDatabase& meter);
};

} // namespace lorvane
