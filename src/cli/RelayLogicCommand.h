// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli relay-logic --meter FILE --gindex N [--json | --out FILE.svg|png|pdf]`: runs
/// the relay view over the whole meter in a scratch database of its own, finds the record
/// with `GIndex` N and prints its relay logic tree: the headings and the grid of the window
/// (text), the nodes and edges with their layout (JSON), or the window's picture (a file).
class RelayLogicCommand
{
public:
    /// Returns an ExitCode; messages go to stderr, the output to stdout.
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
