// SPDX-License-Identifier: GPL-3.0-or-later
#include "InfoCommand.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "FileArguments.h"
#include "platform/Fault.h"
#include "query/selection/LogTree.h"
#include "query/selection/MeterInventory.h"
#include "query/selection/SplitLogMeter.h"
#include "store/MeterDatabase.h"
#include "store/MeterMessages.h"
#include "store/SchemaCatalog.h"

#include <QFileInfo>
#include <QJsonArray>

namespace lorvane::cli {

namespace {

const char* const logAvailableNames[] = {"DatabaseStatus", "DeviceInformation",
                                         "AllLogs",        "Snapshots",
                                         "Demand",         "Limits",
                                         "Inputs",         "Relays",
                                         "Flicker",        "Waveform",
                                         "PowerQuality",   "SystemEvent",
                                         "Billing",        "Compliance"};

QJsonObject deviceJson(const DeviceRecord& r)
{
    QJsonArray labels;
    for (const auto& [index, label] : r.userItemLabels)
        labels.append(
            QJsonObject{{QStringLiteral("Item_Index"), index}, {QStringLiteral("Label"), label}});
    return QJsonObject{{QStringLiteral("Used"), r.used},
                       {QStringLiteral("DeviceTypeID"), r.deviceTypeId},
                       {QStringLiteral("DeviceType"), r.deviceType},
                       {QStringLiteral("FileName"), r.fileName},
                       {QStringLiteral("FilePath"), r.filePath},
                       {QStringLiteral("Address"), r.address},
                       {QStringLiteral("Status"), r.status},
                       {QStringLiteral("HardwareName"), r.hardwareName},
                       {QStringLiteral("HardwareID"), r.hardwareId},
                       {QStringLiteral("HasNominalVoltage"), r.hasNominalVoltage},
                       {QStringLiteral("FirmwareInfo3"), r.firmwareInfo3},
                       {QStringLiteral("KGate"), r.kGate},
                       {QStringLiteral("UserItemLabels"), labels}};
}

QJsonArray logAvailableJson(const DeviceRecord& r)
{
    QJsonArray list;
    for (int i = 0; i < logAvailableCount; ++i) {
        list.append(QJsonObject{{QStringLiteral("index"), i},
                                {QStringLiteral("name"), QLatin1String(logAvailableNames[i])},
                                {QStringLiteral("available"), r.logAvailable.at(i)}});
    }
    return list;
}

QJsonArray treeJson(const QList<LogTreeEntry>& entries, const QString& file)
{
    QJsonArray list;
    for (const LogTreeEntry& e : entries) {
        QJsonObject entry{
            {QStringLiteral("logKind"), e.logKind},       {QStringLiteral("name"), e.label},
            {QStringLiteral("firstStart"), e.firstStart}, {QStringLiteral("lastEnd"), e.lastEnd},
            {QStringLiteral("records"), e.records},       {QStringLiteral("text"), e.text()}};
        if (!file.isEmpty())
            entry.insert(QStringLiteral("file"), file);
        list.append(entry);
    }
    return list;
}

/// Log files of a split-log meter and the tree of each that is there.
void addSplitLog(QJsonObject& report, const QString& dmlPath)
{
    const QString folder = QFileInfo(dmlPath).absolutePath();
    QJsonArray files;
    QJsonArray tree;
    for (int number : SplitLogMeter::allLogs()) {
        const QString path = SplitLogMeter::logFilePath(folder, number);
        const QFileInfo info(path);
        const bool present = info.isFile() && info.size() > 0;
        files.append(QJsonObject{{QStringLiteral("log"), number},
                                 {QStringLiteral("name"), SplitLogMeter::logName(number)},
                                 {QStringLiteral("path"), path},
                                 {QStringLiteral("present"), present}});
        if (!present)
            continue;
        MeterDatabase log(path);
        for (const QJsonValue& entry : treeJson(LogTree::read(log), SplitLogMeter::logName(number)))
            tree.append(entry);
    }
    report.insert(QStringLiteral("deviceMasterLog"), dmlPath);
    report.insert(QStringLiteral("logFiles"), files);
    report.insert(QStringLiteral("logs"), tree);
}

} // namespace

QJsonObject InfoCommand::report(const QString& path)
{
    const bool dml = SplitLogMeter::isDeviceMasterLog(path);
    if (dml && !QFileInfo(path).isFile())
        throw Fault(Fault::Kind::FileMissing, MeterMessages::fileMissing(path),
                    QStringLiteral("OpenDB"), path);
    const QString databasePath = dml ? SplitLogMeter::systemEventPath(path) : path;

    MeterDatabase meter(databasePath);
    QJsonObject report;
    report.insert(QStringLiteral("file"), databasePath);
    report.insert(QStringLiteral("version"), meter.version());
    report.insert(QStringLiteral("note"), meter.note());
    report.insert(QStringLiteral("readOnly"), meter.readOnlyAttribute());
    const DeviceRecord record = MeterInventory::read(meter, 0);
    report.insert(QStringLiteral("device"), deviceJson(record));
    report.insert(QStringLiteral("logAvailable"), logAvailableJson(record));
    if (dml)
        addSplitLog(report, path);
    else
        report.insert(QStringLiteral("logs"), treeJson(LogTree::read(meter), {}));
    return report;
}

int InfoCommand::run(const QStringList& arguments)
{
    const std::optional<FileArguments> parsed =
        FileArguments::parse(QStringLiteral("info"), arguments);
    if (!parsed)
        return Usage;
    const bool json = parsed->json;
    const QString& file = parsed->file;

    const QJsonObject info = report(file);
    if (json)
        CliOutput::printJson(info);
    else
        CliOutput::printInfo(info);
    if (info.value(QStringLiteral("readOnly")).toBool())
        CliOutput::warn(MeterMessages::readOnlyAttribute(QFileInfo(file).fileName()));
    return Success;
}

} // namespace lorvane::cli
