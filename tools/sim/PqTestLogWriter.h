// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SimMeter.h"

namespace lorvane::sim {

/// Writes the EN 50160 test rows of `AllPQTestLogs`: one per whole week of the meter's
/// period, from its first instant on (a remainder shorter than a week gets no row), or one
/// over the whole period when that is shorter than a week. The counts come from the supply
/// model, so that evaluating a row gives what the period's data implies.
class PqTestLogWriter
{
public:
    /// Appends the rows to `AllPQTestLogs` of `meter.db`, numbering `ID_PQTest` on from the
    /// highest already there (from 1 in a new file). An empty period writes nothing. Throws
    /// std::invalid_argument when the meter has no database or no model, StorageError on a
    /// database failure (the table missing included).
    static void write(const SimMeter& meter);
};

} // namespace lorvane::sim
