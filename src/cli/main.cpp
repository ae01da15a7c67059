// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli: the core without a screen, for scripts and batch work.
#include "CliOutput.h"
#include "ExitCode.h"
#include "InfoCommand.h"
#include "LabelCommand.h"
#include "QueryCommand.h"
#include "SetupCommand.h"
#include "StatusCommand.h"
#include "UpgradeCommand.h"
#include "WaveformCommand.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.isEmpty())
        return lorvane::cli::CliOutput::usage(QStringLiteral("no command given"));
    const QString command = arguments.takeFirst();
    if (command == QLatin1String("--help") || command == QLatin1String("help")) {
        QTextStream(stdout) << lorvane::cli::CliOutput::usageText();
        return lorvane::cli::Success;
    }
    if (command == QLatin1String("info"))
        return lorvane::cli::InfoCommand::run(arguments);
    if (command == QLatin1String("upgrade"))
        return lorvane::cli::UpgradeCommand::run(arguments);
    if (command == QLatin1String("query"))
        return lorvane::cli::QueryCommand::run(arguments);
    if (command == QLatin1String("status"))
        return lorvane::cli::StatusCommand::run(arguments);
    if (command == QLatin1String("setup"))
        return lorvane::cli::SetupCommand::run(arguments);
    if (command == QLatin1String("label"))
        return lorvane::cli::LabelCommand::run(arguments);
    if (command == QLatin1String("waveform"))
        return lorvane::cli::WaveformCommand::run(arguments);
    return lorvane::cli::CliOutput::usage(QStringLiteral("unknown command: ") + command);
}
