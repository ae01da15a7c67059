// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli overview --meter FILE [--analyze] [--json]`: the sets of the overview tables
/// with their first and last hour and point count. `--analyze` first rebuilds the tables in
/// the meter file, the one way this command writes, and says so.
class OverviewCommand
{
public:
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
