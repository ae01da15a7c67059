// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli en50160 list --meter FILE [--meter FILE2] --from T --to T [--format csv|json]`
/// prints the EN 50160 test list as the log grid shows it (JSON: caption, columns, rows).
/// `lorvane-cli en50160 evaluate --meter FILE --test ID [--json]` prints the verdict of each
/// page, the voltage events and the totals N1 to N3 of test `ID_PQTest` ID.
class En50160Command
{
public:
    /// Returns an ExitCode; messages go to stderr, the output to stdout.
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
