// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformRecordLoader.h"

#include "SamplePlacement.h"
#include "WaveformChannels.h"
#include "WaveformRecord.h"
#include "WaveformTimeBase.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "store/StampedTime.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <cmath>

namespace lorvane {

namespace {

const QString storedFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

QDateTime clockOf(const SqlStatement& row, const char* column)
{
    return QDateTime::fromString(row.value(QString::fromLatin1(column)).toString(), storedFormat);
}

QString stampText(const QDateTime& clock, double ms)
{
    return StampedTime(clock, ms, 0)
        .text(storedFormat, QLocale::c(), StampedTime::Fraction::TenthMilliseconds);
}

} // namespace

WaveformRecordLoader::WaveformRecordLoader(SqliteDatabase& scratch, const QueryNumbers& numbers)
    : m_db(scratch), m_numbers(numbers)
{
}

bool WaveformRecordLoader::LoadWaveformRecord(WaveformRecord& record, bool first, qint32 recCounter)
{
    const QString waveTable =
        SqlIdentifier::quote(m_numbers.sliceTable(QStringLiteral("WaveformLog_")));
    SqlStatement row =
        m_db.prepare(QStringLiteral("SELECT * FROM %1 WHERE [RecCounter]=?").arg(waveTable));
    row.bind(1, qint64(recCounter));
    if (!row.next())
        return false;
    const auto integer = [&](const char* column) {
        return row.value(QString::fromLatin1(column)).toInt();
    };
    const auto real = [&](const char* column) {
        return row.value(QString::fromLatin1(column)).toDouble();
    };

    WaveformRecord r;
    r.recCounter = recCounter;
    r.deviceIndex = integer("DeviceIndex");
    r.logIndex = integer("Index");
    r.triggerTime = clockOf(row, "Date/Time");
    r.triggerMs = real("ms");
    r.wtTime = clockOf(row, "WTDate/Time");
    r.wtMs = real("WTms");
    r.endTriggerCycPT = qint16(integer("EndTriggerCycPT"));
    r.timingPT = integer("TimingPT");
    r.waveformNumber = qint16(integer("WaveformNumber"));
    r.waveformTriggerNumber = qint16(integer("WaveformTriggerNumber"));
    r.contiguous = integer("Contiguous") != 0;
    r.captureSequence = qint16(integer("CaptureSequence"));
    // A value the meter did not store stays absent: the properties show "N/A", not 0.
    for (int v = 0; v < 12; ++v) {
        const QVariant value = row.value(QStringLiteral("V%1").arg(v));
        r.rmsValues[v] = value.isNull() ? std::nan("") : value.toDouble();
    }
    r.triggeredBy = row.value(QStringLiteral("TriggeredBy1")).toString();
    r.origFirstWave = qint16(integer("OrigFirstWave"));
    r.origWNumber = qint16(integer("OrigWNumber"));
    r.origFirstSample = qint16(integer("OrigFirstSample"));
    r.wsTime = clockOf(row, "WSDT");
    r.wsMs = real("WSms");
    r.weTime = clockOf(row, "WEDT");
    r.weMs = real("WEms");
    r.waveStartText = stampText(r.wsTime, r.wsMs);
    r.waveEndText = stampText(r.weTime, r.weMs);
    r.durationText = QString::number(real("WDuration"));
    r.sampleRate = qint16(integer("SampleRate"));
    r.mode = qint16(integer("Mode"));
    r.cycleMultiplier = 1;
    r.pointsInCycle = integer("SampleInTriggerCyc") * r.cycleMultiplier;
    r.pointsInCycle16 = qint16(r.pointsInCycle);
    r.loadChannel = -1;
    r.systemFlag = 2;
    r.windowStart = 0;
    const QString sample1 = row.value(QStringLiteral("sample1")).toString();

    SqlStatement device = m_db.prepare(
        QStringLiteral("SELECT * FROM %1 WHERE [DeviceIndex]=?")
            .arg(SqlIdentifier::quote(m_numbers.table(QStringLiteral("LogDevices_")))));
    device.bind(1, qint64(r.deviceIndex));
    QString dbPath;
    if (device.next()) {
        r.deviceTypeId = device.value(QStringLiteral("DeviceTypeID")).toInt();
        r.hardwareName = device.value(QStringLiteral("HardwareName")).toString();
        dbPath = device.value(QStringLiteral("DBPath")).toString();
    }

    const auto settingsRow = [&](const char* base) {
        SqlStatement statement = m_db.prepare(
            QStringLiteral("SELECT * FROM %1 WHERE [DeviceIndex]=? AND [Index]=?")
                .arg(SqlIdentifier::quote(m_numbers.sliceTable(QString::fromLatin1(base)))));
        statement.bind(1, qint64(r.deviceIndex)).bind(2, qint64(r.logIndex));
        return statement;
    };
    SqlStatement settings = settingsRow("PQWaveLogDataItem_");
    if (settings.next()) {
        r.hookUp = settings.value(QStringLiteral("HookUp")).toInt();
        r.captureNum = qint16(settings.value(QStringLiteral("CaptureNum")).toInt());
        r.recordFormat = settings.value(QStringLiteral("RecordFormat")).toInt();
        if (r.sampleRate <= 0)
            r.sampleRate = qint16(settings.value(QStringLiteral("SampleRate")).toInt());
    }
    SqlStatement scales = settingsRow("FullScales_");
    if (scales.next()) {
        for (int k = 0; k < 8; ++k)
            r.fullScale[k] = scales.value(QStringLiteral("FullScale%1").arg(k + 1)).toDouble();
        for (int k = 0; k < 4; ++k)
            r.ptCtRatio[k] = scales.value(QStringLiteral("PTCT_Ratio%1").arg(k + 1)).toString();
    }
    // The device list keeps no frequency; the eighth full scale is the system's frequency.
    r.systemFrequency = qAbs(r.fullScale[7] - 50.0) < 5.0 ? 50 : 60;
    SqlStatement inputs = settingsRow("HSInputLabels_");
    const bool labelled = inputs.next();
    for (int n = 1; n <= 8; ++n) {
        const QString label =
            labelled ? inputs.value(QStringLiteral("Input_%1_Label").arg(n)).toString() : QString();
        r.inputLabels[n - 1] = label.isEmpty() ? QStringLiteral("Input %1").arg(n) : label;
        for (int k = 0; k < 16 && labelled; ++k)
            r.inputStateNames[n - 1][k] =
                inputs.value(QStringLiteral("Input_%1_%2").arg(n).arg(k)).toString();
    }
    r.inputCount = labelled ? 8 : 0;

    r.sampleCount = sampleCount(r.sampleRate, r.deviceTypeId, sample1);
    if (r.deviceTypeId == 5)
        r.csvPath = captureFilePath(dbPath, row.value(QStringLiteral("sample0")).toString());

    if (first) {
        SqlStatement adjacent =
            m_db.prepare(QStringLiteral("SELECT [RecCounter] FROM %1 WHERE [Contiguous]=-1 AND "
                                        "[WaveformNumber]=? AND [DeviceIndex]=? AND [Index]=?")
                             .arg(waveTable));
        const auto lookUp = [&](int step, bool& has, qint32& counter) {
            adjacent.reset();
            adjacent.bind(1, qint64(r.waveformNumber + step))
                .bind(2, qint64(r.deviceIndex))
                .bind(3, qint64(r.logIndex));
            has = adjacent.next();
            counter = has ? qint32(adjacent.integer(0)) : -1;
        };
        lookUp(1, r.hasNext1, r.nextRecCounter1);
        r.hasNext2 = false;
        r.nextRecCounter2 = -1;
        if (r.sampleRate >= 128 && r.sampleRate <= 512 && r.deviceTypeId != 5)
            lookUp(2, r.hasNext2, r.nextRecCounter2);
    } else {
        r.hasNext1 = record.hasNext1;
        r.nextRecCounter1 = record.nextRecCounter1;
        r.hasNext2 = record.hasNext2;
        r.nextRecCounter2 = record.nextRecCounter2;
    }
    record = r;
    return true;
}

void WaveformRecordLoader::LoadDatabaseSamples(int mode, int direction,
                                               const WaveformRecord& record,
                                               WaveformChannels& channels)
{
    const QString table =
        SqlIdentifier::quote(m_numbers.sliceTable(QStringLiteral("WaveformLog_")));
    QString sql;
    QVariantList values;
    if (mode == 0) {
        channels.resize(record.sampleCount);
        channels.recorded.fill(false);
        channels.time = WaveformTimeBase::axis(record, record.sampleCount);
        channels.labels = SamplePlacement::labels(record);
        // Fixed-length captures are found by their row time against the wave start.
        const bool byWaveStart = record.deviceTypeId == 4;
        sql = QStringLiteral("SELECT * FROM %1 WHERE [Date/Time]=? AND %2=? AND [DeviceIndex]=? "
                             "ORDER BY [RecCounter]")
                  .arg(table, byWaveStart ? QStringLiteral("[WSms]") : QStringLiteral("[ms]"));
        values = {(byWaveStart ? record.wsTime : record.triggerTime).toString(storedFormat),
                  byWaveStart ? record.wsMs : record.triggerMs, record.deviceIndex};
    } else {
        sql = QStringLiteral("SELECT * FROM %1 WHERE [Contiguous]=-1 AND [RecCounter]=? AND "
                             "[Index]=? AND [DeviceIndex]=?")
                  .arg(table);
        values = {direction == 0 ? record.nextRecCounter1 : record.nextRecCounter2, record.logIndex,
                  record.deviceIndex};
    }
    SqlStatement row = m_db.prepare(sql);
    row.bindAll(values);
    if (!row.next())
        return;
    std::array<QString, SamplePlacement::columnCount> columns;
    for (int c = 0; c < SamplePlacement::columnCount; ++c)
        columns[c] = row.value(QStringLiteral("sample%1").arg(c)).toString();
    SamplePlacement::place(record, columns, mode == 0 ? -1 : record.loadChannel, channels);
}

qint32 WaveformRecordLoader::sampleCount(int sampleRate, int deviceTypeId, const QString& sample1)
{
    if (deviceTypeId == 5)
        return qMax(0, sample1.split(QLatin1Char(',')).value(1).trimmed().toInt());
    if (deviceTypeId == 4 || sampleRate == 256)
        return 2048;
    if (sampleRate == 512)
        return 4096;
    return sampleRate == 16 && deviceTypeId == 0 ? 960 : 1024;
}

QString WaveformRecordLoader::captureFilePath(const QString& dbPath, const QString& sample0)
{
    QString name = sample0;
    name.replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QString path = QDir(QFileInfo(dbPath).absolutePath()).filePath(name);
    if (QFileInfo::exists(path))
        return path;
    const qsizetype csv = path.lastIndexOf(QLatin1String("/csv/"), -1, Qt::CaseInsensitive);
    if (csv < 0)
        return path;
    return QDir::currentPath() + path.mid(csv);
}

} // namespace lorvane
