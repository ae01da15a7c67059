// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/LogFileEntry.h"

#include <QDateTime>
#include <QList>
#include <QVariant>

namespace lorvane {

class SqliteDatabase;
class TempQueryDatabase;

/// The list of EN 50160 test periods of the open meters ("EN50160 / IEC 61000-4-30
/// Information"): copies the tests inside the range into the scratch tables
/// `PQTestLogsMain` (one row per listing) and `PQTestLogsDetail` (one row per test) and
/// makes the grid the log grid window and `lorvane-cli en50160 list` show.
class PqTestList
{
public:
    /// Columns of the grid, in order. The last two are the test's meter file and its
    /// `ID_PQTest`, which the window hides and the report and `evaluate` need.
    enum Column
    {
        StartTime,
        EndTime,
        DeviceName,
        NominalFrequency,
        NominalVoltage,
        FirstStatus, ///< "Freq Fluc", then LSV, FVF, Flicker, SVU, Harmonic, THD
        SourceDb = FirstStatus + 7,
        SourceId,
        ColumnCount
    };
    /// The scratch database and every meter file must be at least this version.
    static constexpr float minimumVersion = 8.6f;

    /// ListPQTests: empties both scratch tables, checks the versions, copies the tests of each
    /// meter whose period lies inside [start, end] and returns the grid. Throws Fault with the
    /// user's message: no meter, a version below 8.6 (the scratch tables are left empty), a
    /// meter that cannot be read (the rows copied before stay).
    static GridTable list(TempQueryDatabase& scratch, const QList<LogFileEntry>& meters,
                          const QDateTime& start, const QDateTime& end);

    /// The grid of what `PQTestLogsDetail` holds, by start time. Its row keys carry the status
    /// codes (`S_Freq` ...) for the cell colours, and what a report of the row is built from:
    /// `SourceDB`, `SourceDB_idon`, `StartTime`, `EndTime`, `MeterName`, `Freq` and the
    /// `NominalVoltage` the cell shows (0 for an empty cell).
    static GridTable grid(SqliteDatabase& scratch);

    /// The nominal voltage cell: the stored value + " V" when the meter has the column and
    /// 40 <= value <= 600; otherwise "230 V" at 50 Hz, "120 V" at 60 Hz and empty at any other
    /// frequency. `stored` is null when the meter's table has no such column.
    static QString nominalVoltageText(const QVariant& stored, double frequency);
    /// The nominal voltage the evaluation uses for that cell (0 for an empty cell).
    static double nominalVoltage(const QVariant& stored, double frequency);

    /// The file of a meter that holds its test log: the EN 50160 log of a split-log meter,
    /// the meter file otherwise.
    static QString testLogFile(const LogFileEntry& meter);
};

} // namespace lorvane
