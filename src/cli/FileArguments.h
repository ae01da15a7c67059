// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace lorvane::cli {

/// The arguments of a command that takes one database file and an optional `--json`.
struct FileArguments
{
    QString file;
    bool json = false;

    /// Parses `arguments` of `command`; on a bad call prints the usage message and returns
    /// nothing (the caller then exits with the usage code).
    static std::optional<FileArguments> parse(const QString& command, const QStringList& arguments);
};

} // namespace lorvane::cli
