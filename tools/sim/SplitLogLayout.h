// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane::sim {

/// Where the logs of a split-log meter live: `{dir}/{name}.dml` beside a `logs` folder with
/// one database per log, `{dir}/logs/{LOGNAME}/{LOGNAME}.db`.
class SplitLogLayout
{
public:
    /// `LOGNAME` of a log number ("INTERVAL_1" for 1 ...); empty outside the table.
    static QString logName(int logNumber);
    /// The database of a log below the meter's folder.
    static QString databasePath(const QString& dir, int logNumber);
    /// The Device Master Log file `{dir}/{name}.dml`, name = the folder's own name.
    static QString masterLogPath(const QString& dir);
};

} // namespace lorvane::sim
