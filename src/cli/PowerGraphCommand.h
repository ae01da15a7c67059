// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli power-graph --meter FILE --points ID,... --from T --to T [--demand]
/// [--kind circular|xy] [--days N] [--start T] [--min Y] [--max Y] [--json]`: reads the
/// snapshot (or demand) records of up to six data points as the power graph window does and
/// prints them as CSV (its "Export Data"), or with `--json` the view the window draws: the
/// header period, the record counts, each item's Max and Min, and each record of the view
/// with its angle on the dial (circular) or its place on the time axis (xy) and its share of
/// the value scale.
class PowerGraphCommand
{
public:
    /// Returns an ExitCode; messages go to stderr, the output to stdout.
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
