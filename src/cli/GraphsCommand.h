// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli graphs [--json]`: the graphs of GraphRegistry, each with its log kind, the
/// view that loads its rows and what it draws.
struct GraphsCommand
{
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
