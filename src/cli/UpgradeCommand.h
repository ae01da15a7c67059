// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli upgrade FILE [--json]`: brings a meter database to schema 8.6 in place with
/// the upgrade ladder, the one command that writes a meter file. Prints the versions before
/// and after and the steps that ran; a refused file or a failed step leaves the file at a
/// whole version and ends with the message on stderr and its own exit code.
class UpgradeCommand
{
public:
    /// Runs the command; returns the exit code.
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
