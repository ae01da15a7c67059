// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/TempQueryDatabase.h"

#include <QStringList>
#include <QTemporaryDir>
#include <memory>

namespace lorvane::test {

/// The small meters the query tests read: two days from 2024-03-04, 15-minute snapshots of
/// 12 points.
QStringList smallMeterArguments();

/// Runs lorvane-sim with `arguments`; a failure is reported to the running test with the
/// program's message, and false comes back.
bool simulate(const QStringList& arguments);

/// A working database copied from the delivered scratch template into `folder`/scratch.
std::unique_ptr<TempQueryDatabase> scratchDatabase(const QTemporaryDir& folder, qint64 processId);

} // namespace lorvane::test
