// SPDX-License-Identifier: GPL-3.0-or-later
#include "FileArguments.h"

#include "CliOutput.h"

namespace lorvane::cli {

std::optional<FileArguments> FileArguments::parse(const QString& command,
                                                  const QStringList& arguments)
{
    FileArguments parsed;
    QStringList files;
    for (const QString& argument : arguments) {
        if (argument == QLatin1String("--json")) {
            parsed.json = true;
        } else if (argument.startsWith(QLatin1String("--"))) {
            CliOutput::usage(QStringLiteral("unknown option for %1: %2").arg(command, argument));
            return std::nullopt;
        } else {
            files << argument;
        }
    }
    if (files.size() != 1) {
        CliOutput::usage(QStringLiteral("%1 takes one database file").arg(command));
        return std::nullopt;
    }
    parsed.file = files.first();
    return parsed;
}

} // namespace lorvane::cli
