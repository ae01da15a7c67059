// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli setup FILE [--table NAME] [--format csv|json]`: the settings tables of a
/// meter file (device information, input, relay, limit and PQ/waveform settings, full scales,
/// input labels, scaled formats) as grids; `--table` prints one of them.
class SetupCommand
{
public:
    /// Returns the exit code: 0, the usage code for a bad command line or an unknown table,
    /// the failure code when the file cannot be read.
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
