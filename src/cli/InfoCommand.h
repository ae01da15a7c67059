// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli info FILE [--json]`: a meter database's version and note, its device record,
/// log inventory and log tree; for a Device Master Log also its log files.
class InfoCommand
{
public:
    /// Runs the command; returns the exit code. Output goes to stdout, errors to stderr.
    static int run(const QStringList& arguments);

    /// The report of one meter file as JSON (also the source of the text form).
    static QJsonObject report(const QString& path);
};

} // namespace lorvane::cli
