// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli pq-histogram --meter FILE [--meter FILE2] --from T --to T [--json]`: runs the
/// PQ view over the range in a scratch database of its own and prints what the power quality
/// graph draws: the events of the six voltage channels, the count matrix of magnitude by
/// duration bins and the table of sums, as tables or as JSON numbers.
class PqHistogramCommand
{
public:
    /// Returns an ExitCode; messages go to stderr, the output to stdout.
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
