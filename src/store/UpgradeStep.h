// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LoadProgress.h"
#include "platform/SqliteDatabase.h"

#include <QDateTime>
#include <QString>
#include <functional>

namespace lorvane {

/// One rung of the schema upgrade ladder: written for exactly one source version, it makes
/// its changes and closes with the update of `ID_Table` to its target version.
struct UpgradeStep
{
    enum class Outcome
    {
        Ran,         ///< the file was at the source version and is now at the target
        NotAtSource, ///< the file was at another version; nothing changed
        Cancelled,   ///< the progress callback cancelled; the step was rolled back
    };

    double source = 0;
    double target = 0;
    QString name; ///< "UpdateDB2V7_6" ...: the step text of faults
    /// Fixed note of the closing statement; empty for the steps that stamp the present time.
    QString note;
    /// The changes on the open file inside the step's transaction, told to the progress (a
    /// long step reports its text and share); false when the progress was cancelled.
    std::function<bool(SqliteDatabase&, LoadProgress&)> changes;

    /// The statement that closes the step: "Update [ID_Table] Set [Version]=8.3,
    /// [Note]='Database Updated to V8.3 on 2024-03-04 12:00:00'" with `now` as the stamp
    /// where the step has no fixed note.
    QString closingStatement(const QDateTime& now) const;
};

} // namespace lorvane
