// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli: the core without a screen, for scripts and batch work.
#include "CliOutput.h"
#include "CommandBoundary.h"
#include "En50160Command.h"
#include "ExitCode.h"
#include "GraphsCommand.h"
#include "InfoCommand.h"
#include "LabelCommand.h"
#include "OverviewCommand.h"
#include "PowerGraphCommand.h"
#include "PqHistogramCommand.h"
#include "QueryCommand.h"
#include "RelayLogicCommand.h"
#include "SetupCommand.h"
#include "StatusCommand.h"
#include "TrendCommand.h"
#include "UpgradeCommand.h"
#include "WaveformCommand.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QHash>
#include <QTextStream>
#include <memory>

int main(int argc, char* argv[])
{
    // A command that draws pictures needs the fonts of a GUI application, on the offscreen
    // platform: the command line has no screen.
    const bool draws =
        argc > 1 && (qstrcmp(argv[1], "relay-logic") == 0 || qstrcmp(argv[1], "power-graph") == 0);
    if (draws)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::unique_ptr<QCoreApplication> app =
        draws ? std::make_unique<QGuiApplication>(argc, argv)
              : std::make_unique<QCoreApplication>(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.isEmpty())
        return lorvane::cli::CliOutput::usage(QStringLiteral("no command given"));
    const QString command = arguments.takeFirst();
    if (command == QLatin1String("--help") || command == QLatin1String("help")) {
        QTextStream(stdout) << lorvane::cli::CliOutput::usageText();
        return lorvane::cli::Success;
    }
    using Runner = int (*)(const QStringList&);
    static const QHash<QString, Runner> commands{
        {QStringLiteral("info"), &lorvane::cli::InfoCommand::run},
        {QStringLiteral("upgrade"), &lorvane::cli::UpgradeCommand::run},
        {QStringLiteral("query"), &lorvane::cli::QueryCommand::run},
        {QStringLiteral("status"), &lorvane::cli::StatusCommand::run},
        {QStringLiteral("setup"), &lorvane::cli::SetupCommand::run},
        {QStringLiteral("label"), &lorvane::cli::LabelCommand::run},
        {QStringLiteral("waveform"), &lorvane::cli::WaveformCommand::run},
        {QStringLiteral("power-graph"), &lorvane::cli::PowerGraphCommand::run},
        {QStringLiteral("en50160"), &lorvane::cli::En50160Command::run},
        {QStringLiteral("pq-histogram"), &lorvane::cli::PqHistogramCommand::run},
        {QStringLiteral("graphs"), &lorvane::cli::GraphsCommand::run},
        {QStringLiteral("trend"), &lorvane::cli::TrendCommand::run},
        {QStringLiteral("overview"), &lorvane::cli::OverviewCommand::run},
        {QStringLiteral("relay-logic"), &lorvane::cli::RelayLogicCommand::run},
    };
    const Runner runner = commands.value(command);
    if (!runner)
        return lorvane::cli::CliOutput::usage(QStringLiteral("unknown command: ") + command);
    return lorvane::cli::runAtBoundary(command, [&] { return runner(arguments); });
}
