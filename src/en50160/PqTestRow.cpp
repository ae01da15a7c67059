// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqTestRow.h"

#include "PqTestStatistics.h"
#include "platform/Fault.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/selection/SplitLogMeter.h"
#include "store/MeterDatabase.h"
#include "store/StampedTime.h"

#include <QDir>
#include <QFileInfo>
#include <memory>

namespace lorvane {

namespace {

constexpr int readBins = 152;
constexpr int enLog = 16;
constexpr int pqLog = 13;

QString step()
{
    return QStringLiteral("RunPQReport");
}

/// The meter's folder when `path` is the EN 50160 log of a split-log meter, else empty.
QString splitMeterFolder(const QString& path)
{
    const QFileInfo file(path);
    const QString log = SplitLogMeter::logName(enLog);
    if (file.completeBaseName().compare(log, Qt::CaseInsensitive) != 0 ||
        file.absoluteDir().dirName().compare(log, Qt::CaseInsensitive) != 0)
        return {};
    return SplitLogMeter::dmlFolderOfLogFile(path);
}

} // namespace

QString PqTestRow::pqLogFile() const
{
    const QString folder = splitMeterFolder(sourceDb);
    return folder.isEmpty() ? sourceDb : SplitLogMeter::logFilePath(folder, pqLog);
}

QStringList PqTestRow::snapshotLogFiles() const
{
    const QString folder = splitMeterFolder(sourceDb);
    if (folder.isEmpty())
        return {sourceDb};
    // The interval logs a split-log meter's tests are built on.
    QStringList files;
    for (int log : {2, 22, 23}) {
        const QString path = SplitLogMeter::logFilePath(folder, log);
        if (QFileInfo(path).isFile())
            files << path;
    }
    return files;
}

PqTestRow PqTestRow::fromKeys(const QVariantMap& keys)
{
    PqTestRow row;
    row.start = StampedTime::parseClock(keys.value(QStringLiteral("StartTime")).toString());
    row.end = StampedTime::parseClock(keys.value(QStringLiteral("EndTime")).toString());
    row.meterName = keys.value(QStringLiteral("MeterName")).toString();
    row.frequency = keys.value(QStringLiteral("Freq")).toDouble();
    row.nominalVoltage = keys.value(QStringLiteral("NominalVoltage")).toDouble();
    row.sourceDb = keys.value(QStringLiteral("SourceDB")).toString();
    row.testId = keys.value(QStringLiteral("SourceDB_idon")).toLongLong();
    return row;
}

bool PqTestRebuild::rebuild(const PqTestRow& row, PqTestStatistics& statistics)
{
    if (!row.start.isValid() || !row.end.isValid())
        throw Fault(Fault::Kind::Other,
                    userText("610020", "There was an error, Invalid Date/Time detected"), step(),
                    row.sourceDb);
    statistics = PqTestStatistics();
    statistics.setPeriod(row.start, row.end, int(row.frequency), row.nominalVoltage);

    std::unique_ptr<MeterDatabase> meter;
    try {
        meter = std::make_unique<MeterDatabase>(row.sourceDb, step());
    } catch (const std::exception&) {
        throw Fault(Fault::Kind::Other,
                    userText("610021", "There was an error accessing the database"), step(),
                    row.sourceDb);
    }
    return meter->guarded(step(), [&] {
        SqliteDatabase& db = meter->db();
        SqlStatement parameters = db.prepare(
            QStringLiteral("Select P_Freq,P_FVF from AllPQTestLogs where ID_PQTest = ?"));
        parameters.bind(1, row.testId);
        if (parameters.next())
            statistics.setParameters(parameters.value(0), parameters.value(1));

        QStringList columns;
        for (int n = 1; n <= readBins; ++n)
            columns << QStringLiteral("bin_%1").arg(n);
        SqlStatement bins = db.prepare(QStringLiteral("Select %1 from AllPQTestLogs where "
                                                      "ID_PQTest = ?")
                                           .arg(columns.join(QLatin1Char(','))));
        bins.bind(1, row.testId);
        if (!bins.next())
            return false;
        for (int n = 1; n <= PqTestStatistics::storedBins; ++n) {
            const QVariant value = bins.value(n - 1);
            if (!statistics.setBin(n, value))
                throw Fault(
                    Fault::Kind::Damaged,
                    QStringLiteral("bin_%1 = %2: ").arg(n).arg(value.toString()) +
                        userText("610022", "the count is more than its field of the "
                                           "test statistics holds") +
                        QStringLiteral(" (%1 bytes)").arg(PqTestStatistics::binField(n).width),
                    step(), row.sourceDb);
        }
        return true;
    });
}

} // namespace lorvane
