// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli trend --meter FILE [--meter FILE2] --points ID,... --from T --to T
/// [--demand] [--extents default|nonzero|intelligent] [--json] [--out FILE.csv]`: loads the
/// points as the trend window does and prints each set's count, minimum and maximum and the
/// extents of both axes by the rule; `--out` writes the samples as CSV. Reads only.
class TrendCommand
{
public:
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
