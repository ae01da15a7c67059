// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli query VIEW --meter FILE ...`: runs a registered view on one or two meters in
/// a scratch database of its own and prints the grids the log window shows (CSV or JSON).
class QueryCommand
{
public:
    /// Returns an ExitCode; messages go to stderr, the grids to stdout.
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
