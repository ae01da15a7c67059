// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli label ID [ID ...] [--dictionary PATH] [--json]`: the label of each data point
/// id, from the dictionary that start-up would open (the paths file's "QLMNameListdb" folder,
/// else the system folder) or from the named file.
class LabelCommand
{
public:
    /// Runs the command; returns the exit code. Labels go to stdout, one "{id}\t{label}" line
    /// each (or one JSON object), errors to stderr.
    static int run(const QStringList& arguments);

    /// The dictionary start-up would open on this system.
    static QString installedDictionary();
};

} // namespace lorvane::cli
