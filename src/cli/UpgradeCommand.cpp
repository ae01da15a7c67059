// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpgradeCommand.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "FaultExitCode.h"
#include "platform/Fault.h"
#include "store/MeterMessages.h"
#include "store/SchemaUpgrade.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTextStream>

namespace lorvane::cli {

namespace {

int exitCodeOf(const Fault& fault)
{
    // A file that the load checks refuse is left as it is, and so is a read-only one; the
    // version faults before the ladder are those that end the program.
    if (fault.step() == QLatin1String("BlockLoadDB") ||
        fault.step() == QLatin1String("VersionGuard") || fault.kind() == Fault::Kind::ReadOnly)
        return Refused;
    return exitCodeFor(fault);
}

} // namespace

int UpgradeCommand::run(const QStringList& arguments)
{
    bool json = false;
    QStringList files;
    for (const QString& argument : arguments) {
        if (argument == QLatin1String("--json"))
            json = true;
        else if (argument.startsWith(QLatin1String("--")))
            return CliOutput::usage(QStringLiteral("unknown option for upgrade: ") + argument);
        else
            files << argument;
    }
    if (files.size() != 1)
        return CliOutput::usage(QStringLiteral("upgrade takes one database file"));

    try {
        const UpgradeResult result = SchemaUpgrade::upgrade(files.first());
        if (json) {
            CliOutput::printJson(
                QJsonObject{{QStringLiteral("file"), files.first()},
                            {QStringLiteral("from"), result.from},
                            {QStringLiteral("to"), result.to},
                            {QStringLiteral("steps"), QJsonArray::fromStringList(result.steps)}});
        } else {
            QTextStream out(stdout);
            out << "file: " << files.first() << '\n'
                << "from: " << MeterMessages::versionText(result.from) << '\n'
                << "to: " << MeterMessages::versionText(result.to) << '\n'
                << "steps: "
                << (result.steps.isEmpty() ? QStringLiteral("none")
                                           : result.steps.join(QStringLiteral(", ")))
                << '\n';
        }
        return Success;
    } catch (const Fault& fault) {
        CliOutput::error(fault.message());
        return exitCodeOf(fault);
    }
}

} // namespace lorvane::cli
