// SPDX-License-Identifier: GPL-3.0-or-later
#include "LabelCommand.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "FaultExitCode.h"
#include "app/StartupPaths.h"
#include "platform/RegistryAccess.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "platform/SystemFolder.h"
#include "store/DataPointLabel.h"
#include "store/DeviceTypeTable.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTextStream>
#include <optional>
#include <vector>

namespace lorvane::cli {

namespace {

std::optional<qint32> parseId(const QString& text)
{
    bool ok = false;
    const int id = text.toInt(&ok);
    if (!ok)
        return std::nullopt;
    return id;
}

} // namespace

QString LabelCommand::installedDictionary()
{
    const QString systemFolder = SystemFolder::path();
    const QString pathsFile = StartupPaths::locatePathsFile(
        systemFolder, RegistryAccess().readString(
                          QStringLiteral("HKEY_LOCAL_MACHINE\\software\\qlm_software\\path"),
                          QStringLiteral("software_ini_path")));
    return StartupPaths::locateNameList(pathsFile, systemFolder);
}

int LabelCommand::run(const QStringList& arguments)
{
    bool json = false;
    QString dictionaryPath;
    std::vector<qint32> ids;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--json")) {
            json = true;
        } else if (argument == QLatin1String("--dictionary")) {
            if (i + 1 >= arguments.size())
                return CliOutput::usage(QStringLiteral("--dictionary needs a file"));
            dictionaryPath = arguments.at(++i);
        } else if (argument.startsWith(QLatin1String("--"))) {
            return CliOutput::usage(QStringLiteral("unknown option for label: ") + argument);
        } else if (const std::optional<qint32> id = parseId(argument)) {
            ids.push_back(*id);
        } else {
            return CliOutput::usage(
                QStringLiteral("not a data point id (a 32-bit whole number): ") + argument);
        }
    }
    if (ids.empty())
        return CliOutput::usage(QStringLiteral("label takes at least one data point id"));
    if (dictionaryPath.isEmpty())
        dictionaryPath = installedDictionary();

    try {
        SqliteDatabase dictionary(dictionaryPath, SqliteDatabase::Mode::ReadOnly);
        // The same test start-up makes: a file without readable device types is no dictionary.
        DeviceTypeTable deviceTypes;
        if (!deviceTypes.loadDeviceTypes(dictionary)) {
            CliOutput::error(dictionaryPath +
                             QStringLiteral(" is not a device dictionary: it has no readable "
                                            "Devices table"));
            return Damaged;
        }
        QJsonArray labels;
        QTextStream out(stdout);
        for (const qint32 id : ids) {
            const QString label = DataPointLabel::text(dictionary, id);
            if (json)
                labels.append(
                    QJsonObject{{QStringLiteral("id"), id}, {QStringLiteral("label"), label}});
            else
                out << id << '\t' << label << '\n';
        }
        if (json)
            CliOutput::printJson(QJsonObject{{QStringLiteral("dictionary"), dictionaryPath},
                                             {QStringLiteral("labels"), labels}});
        return Success;
    } catch (const StorageError& error) {
        CliOutput::error(QStringLiteral("The dictionary cannot be read: ") + error.detail() +
                         QStringLiteral("\nDictionary: ") + dictionaryPath);
        return exitCodeFor(error);
    }
}

} // namespace lorvane::cli
