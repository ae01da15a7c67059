// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli status FILE... [--format csv|json]`: the database status grid of each file.
class StatusCommand
{
public:
    /// Returns the exit code: 0, the usage code for a bad command line, the failure code when
    /// a file cannot be read (its grid still says so).
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
