// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MeterDatabase.h"
#include "UpgradeResult.h"
#include "UpgradeStep.h"
#include "platform/Fault.h"

#include <QString>

namespace lorvane {

/// Brings a selected meter file to schema 8.6 in place and decides whether it may be opened:
/// the version checks before the ladder, the ladder itself, the load checks after it and the
/// comparison with the scratch database. Each step runs in a transaction of its own, so a
/// failure or a kill leaves the file at the last version whose closing statement ran, and the
/// next upgrade resumes from there.
class SchemaUpgrade
{
public:
    /// `Version` of the first row of `ID_Table`, the file opened for writing (which also
    /// rolls back what an interrupted step left); -1.0 when the table has no row. Throws
    /// Fault with step "GetDB_Version" when the file cannot be read.
    static double GetDB_Version(const QString& path);
    /// The two version faults that end the program: Fault Version, step "GetDB_Version",
    /// "Cannot read current database version..." for a version of 0 or less and "Invalid
    /// database version ..." for one below 7.5 or exactly 7.8.
    static void checkVersion(double version, const QString& path);
    /// `fault` is one of those two.
    static bool endsProgram(const Fault& fault);

    /// Checks before the ladder, then the ladder, then BlockLoadDB and the version guard.
    /// Throws Fault: FileMissing; ReadOnly "{name} file attribute is read-only." (the file
    /// is not touched); Version "Cannot read current database version..." for a version of
    /// 0 or less and "Invalid database version ..." for one below 7.5 or exactly 7.8 (both end
    /// the program); Version with step "BlockLoadDB" or "VersionGuard" for a file that must
    /// not be opened (7.55); Other with the step's name for an engine failure in a step, the
    /// file then stays at the last whole version. `progress` (null for none) is told the
    /// share of the ladder done, step by step, and serves the long 8.3 step; its cancel stops
    /// the ladder after rolling back the running step, and the result then says so.
    static UpgradeResult upgrade(const QString& path, LoadProgress* progress = nullptr);

    /// Runs one step on the file in its own transaction: the changes only when the file is at
    /// the step's source version. Throws Fault with the step's name when a statement fails;
    /// the step is then rolled back.
    static UpgradeStep::Outcome runStep(const QString& path, const UpgradeStep& step,
                                        LoadProgress& progress);

    /// The load check on an open file: true, with the message, when it must not be opened:
    /// below 7.5 (the message names 7.6) or exactly 7.55 ("cannot be upgraded").
    static bool BlockLoadDB(MeterDatabase& meter, QString& message);
    /// Its companion after the ladder: true, with the message, below 7.5 (naming 7.5).
    static bool versionGuard(MeterDatabase& meter, QString& message);

    /// Compares the scratch database at `scratchPath` with the open meter file. A scratch
    /// version below the file's and below 8.6 refuses the file: Fault Version with the
    /// five-line text, step "UpdateLorvaneTempQuery". From 8.6 it runs
    /// UpdateLorvaneTempQuery (file - scratch) / 0.1 times. Returns how many it ran.
    static int compareWithScratch(const QString& scratchPath, MeterDatabase& meter);
    /// Step `step` (from 1) of the scratch database's update: step 1 brings it to 8.7, the
    /// others do nothing. Throws Fault with step "UpdateLorvaneTempQuery" on failure.
    static void UpdateLorvaneTempQuery(const QString& path, int step);
};

} // namespace lorvane
