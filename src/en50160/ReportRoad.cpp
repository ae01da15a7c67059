// SPDX-License-Identifier: GPL-3.0-or-later
#include "ReportRoad.h"

#include "platform/Fault.h"
#include "platform/UserText.h"
#include "query/selection/SplitLogMeter.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace lorvane {

namespace {

const QString generatorName = QStringLiteral("EN50160_ReportGenerator.exe");

} // namespace

QString ReportRoad::findMeterReportXml(const QString& databasePath)
{
    const QDir folder(
        QFileInfo(databasePath).absoluteDir().filePath(QStringLiteral("EN50160/XML_DATA")));
    if (!folder.exists() || folder.entryList(QDir::Files | QDir::Hidden | QDir::System).isEmpty())
        return {};
    return folder.absolutePath();
}

ReportRoad::Road ReportRoad::choose(int firstDeviceTypeId, const QString& xmlFolder, int currentRow,
                                    int rowCount)
{
    if (firstDeviceTypeId == SplitLogMeter::deviceTypeId && !xmlFolder.isEmpty() &&
        currentRow >= 0 && currentRow < rowCount - 1)
        return Road::ExternalGenerator;
    return Road::Evaluation;
}

int ReportRoad::week(const QDate& day)
{
    const int firstWeekday = QDate(day.year(), 1, 1).dayOfWeek() - 1; // Monday 0
    const int sum = day.dayOfYear() + firstWeekday;
    return sum >= 7 ? sum / 7 : 52;
}

QString ReportRoad::xmlFile(const QString& xmlFolder, const QDate& day)
{
    return QDir(xmlFolder).filePath(QStringLiteral("%1_W%2.xml")
                                        .arg(day.year(), 4, 10, QLatin1Char('0'))
                                        .arg(week(day), 2, 10, QLatin1Char('0')));
}

QString ReportRoad::generatorPath(const QString& setting, const QString& programFolder)
{
    const QString beside = QDir(programFolder).filePath(generatorName);
    const QString chosen = setting.isEmpty() ? beside : setting;
    if (QFileInfo(chosen).isFile())
        return chosen;
    return QFileInfo(beside).isFile() ? beside : QString();
}

QString ReportRoad::generatorMissingMessage()
{
    return userText("610050", "EN50160 Report Generator not found!  Unable to generate report.");
}

bool ReportRoad::startDetached(const QString& program, const QStringList& arguments)
{
    return QProcess::startDetached(program, arguments);
}

void ReportRoad::runExternalGenerator(const QString& xmlFolder, const QDate& rowDay,
                                      const QString& generator, const Starter& start)
{
    if (generator.isEmpty() || !start(generator, {xmlFile(xmlFolder, rowDay)}))
        throw Fault(Fault::Kind::FileMissing, generatorMissingMessage(),
                    QStringLiteral("RunExternalGenerator"), generator);
}

} // namespace lorvane
