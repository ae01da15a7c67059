// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpgradeCommand.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "FaultExitCode.h"
#include "FileArguments.h"
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
    const std::optional<FileArguments> parsed =
        FileArguments::parse(QStringLiteral("upgrade"), arguments);
    if (!parsed)
        return Usage;
    const bool json = parsed->json;
    const QString& file = parsed->file;

    try {
        const UpgradeResult result = SchemaUpgrade::upgrade(file);
        if (json) {
            CliOutput::printJson(
                QJsonObject{{QStringLiteral("file"), file},
                            {QStringLiteral("from"), result.from},
                            {QStringLiteral("to"), result.to},
                            {QStringLiteral("steps"), QJsonArray::fromStringList(result.steps)}});
        } else {
            QTextStream out(stdout);
            out << "file: " << file << '\n'
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
