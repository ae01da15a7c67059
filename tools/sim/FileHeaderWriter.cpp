// SPDX-License-Identifier: GPL-3.0-or-later
#include "FileHeaderWriter.h"

#include "RowInsert.h"
#include "SimClock.h"
#include "SplitLogLayout.h"
#include "platform/SqlIdentifier.h"

#include <tuple>

namespace lorvane::sim {

QString FileHeaderWriter::optionName(SimLog log)
{
    switch (log) {
    case SimLog::Interval1:
        return QStringLiteral("Historical Log 1");
    case SimLog::Interval2:
        return QStringLiteral("Historical Log 2");
    case SimLog::Limits:
        return QStringLiteral("Sequence of Events/Limit State Log");
    case SimLog::Inputs:
        return QStringLiteral("Digital Input State Log");
    case SimLog::Relays:
        return QStringLiteral("Digital Output State Log");
    case SimLog::Flicker:
        return QStringLiteral("Flicker Log");
    case SimLog::Waveform:
        return QStringLiteral("Waveform Sample Log");
    case SimLog::SystemEvent:
        return QStringLiteral("System Event Log");
    case SimLog::PowerQuality:
        return QStringLiteral("PQ Log");
    case SimLog::EN50160:
        return QStringLiteral("EN50160 Log");
    case SimLog::Transient:
        return QStringLiteral("Transient Log");
    }
    return {};
}

void FileHeaderWriter::write(const SimMeter& meter, const MeterProfile& profile,
                             const QList<SimLog>& logs, const QList<qint32>& dataPoints)
{
    SqliteDatabase& db = *meter.db;
    RowInsert(QStringLiteral("ID_Table"))
        .set(QStringLiteral("Version"), meter.schema.version())
        .set(QStringLiteral("Note"),
             QStringLiteral("Written by lorvane-sim, seed %1").arg(meter.seed))
        .run(meter);
    RowInsert(QStringLiteral("DeviceInformation"))
        .set(QStringLiteral("DeviceTypeID"), qint64(profile.deviceTypeId()))
        .set(QStringLiteral("DeviceType"), profile.deviceTypeName())
        .set(QStringLiteral("Address"), QString::number(meter.seed % 247 + 1))
        .set(QStringLiteral("HardwareName"), meter.hardwareName)
        .set(QStringLiteral("HardwareID"), QStringLiteral("HX%1-%2")
                                               .arg(profile.deviceTypeId())
                                               .arg(meter.seed, 6, 10, QLatin1Char('0')))
        .set(QStringLiteral("HardwareTypeName"), profile.deviceTypeName())
        .set(QStringLiteral("KGate"), qint64(profile.kGate()))
        .run(meter);

    qint64 minute = 0;
    for (SimLog log : logs) {
        RowInsert(QStringLiteral("AllLogs"))
            .set(QStringLiteral("EntryDate/Time"), SimClock::text(meter.endSecond + 60 * minute++))
            .set(QStringLiteral("LogOptionName"), optionName(log))
            .set(QStringLiteral("HarvesterVersion"), QStringLiteral("2.4.0"))
            .set(QStringLiteral("HarvesterInfo"),
                 QStringLiteral("lorvane-sim seed %1").arg(meter.seed))
            .set(QStringLiteral("DownloadSoftwareInfo"), QStringLiteral("lorvane-sim"))
            .set(QStringLiteral("FirmwareInfo1"), QStringLiteral("COMM 4.12"))
            .set(QStringLiteral("FirmwareInfo2"), QStringLiteral("DSP 2.07"))
            .set(QStringLiteral("FirmwareInfo3"),
                 profile.kGate() > 0 ? QStringLiteral("K-Gate 1.3") : QStringLiteral("N/A"))
            .run(meter);
    }

    SqlStatement point =
        db.prepare(QStringLiteral("INSERT INTO [DataPoints] ([DataID]) VALUES (?)"));
    for (qint32 id : dataPoints) {
        point.reset();
        point.bind(1, qint64(id)).run();
    }

    // Format ids of the dictionary's scaled formats: 1 voltage, 2 current, 3 power,
    // 4 energy, 5 power factor, 6 frequency.
    const int formats[][4] = {{1, 5, 0, 1}, {2, 5, 0, 1}, {3, 7, 1, 2},
                              {4, 9, 1, 0}, {5, 4, 0, 3}, {6, 5, 0, 2}};
    for (const auto& f : formats) {
        RowInsert(QStringLiteral("ScaledFormats"))
            .set(QStringLiteral("ProfileIndex"), qint64(0))
            .set(QStringLiteral("FormatID"), qint64(f[0]))
            .set(QStringLiteral("Digits"), qint64(f[1]))
            .set(QStringLiteral("Units"), qint64(f[2]))
            .set(QStringLiteral("Decimals"), qint64(f[3]))
            .run(meter);
    }

    if (meter.schema.version() >= 9.1 - 1e-9) {
        // Item 1 was relabelled under a later profile: readers take the highest profile.
        const std::tuple<int, int, const char*> labels[] = {{0, 1, "Feeder Main"},
                                                            {1, 1, "Feeder Main (rewired)"},
                                                            {0, 2, "Chiller Plant"},
                                                            {0, 3, "Lighting Panel"}};
        for (const auto& [profileIndex, item, label] : labels) {
            RowInsert(QStringLiteral("User_Defined_Item_Labels"))
                .set(QStringLiteral("ProfileIndex"), qint64(profileIndex))
                .set(QStringLiteral("Item_Index"), qint64(item))
                .set(QStringLiteral("Label"), QString::fromLatin1(label))
                .run(meter);
        }
    }
}

void FileHeaderWriter::writeLastTimeStamps(const SimMeter& meter, const QList<SimLog>& logs)
{
    SqliteDatabase& db = *meter.db;
    for (SimLog log : logs) {
        QString table = QStringLiteral("AllHistoricalLogs");
        QString end = QStringLiteral("EndDate/Time");
        QString count = QStringLiteral("SUM([Records])");
        switch (log) {
        case SimLog::Interval1:
            break;
        case SimLog::Interval2:
            table = QStringLiteral("AllEnergyDemandLogs");
            break;
        case SimLog::Limits:
            table = QStringLiteral("AllLimitsLogs");
            break;
        case SimLog::Inputs:
            table = QStringLiteral("AllInputLogs");
            break;
        case SimLog::Relays:
            table = QStringLiteral("AllRelayLogs");
            break;
        case SimLog::Flicker:
            table = QStringLiteral("AllFlickerLogs");
            break;
        case SimLog::Waveform:
        case SimLog::Transient:
            table = QStringLiteral("AllWaveformLogs");
            break;
        case SimLog::SystemEvent:
            table = QStringLiteral("AllSystemEventLogs");
            break;
        case SimLog::PowerQuality:
            table = QStringLiteral("AllPQLogs");
            break;
        case SimLog::EN50160:
            table = QStringLiteral("AllPQTestLogs");
            end = QStringLiteral("EndTime");
            count = QStringLiteral("COUNT(*)");
            break;
        }
        SqlStatement last =
            db.prepare(QStringLiteral("SELECT MAX(%1), %2 FROM %3")
                           .arg(SqlIdentifier::quote(end), count, SqlIdentifier::quote(table)));
        if (!last.next() || last.isNull(0))
            continue;
        RowInsert(QStringLiteral("LastTimeStamps"))
            .set(QStringLiteral("LogID"), qint64(static_cast<int>(log)))
            .set(QStringLiteral("LogName"), SplitLogLayout::logName(static_cast<int>(log)))
            .set(QStringLiteral("LastDateTime"), last.text(0))
            .set(QStringLiteral("Lastms"), qint64(0))
            .set(QStringLiteral("LastDTmode"), qint64(0))
            .set(QStringLiteral("LastRecNum"), last.integer(1))
            .run(meter);
    }
    RowInsert(QStringLiteral("LastTimeStamps"))
        .set(QStringLiteral("LogID"), qint64(0))
        .set(QStringLiteral("LogName"), QStringLiteral("RESET"))
        .set(QStringLiteral("LastDateTime"), SimClock::text(meter.startSecond))
        .set(QStringLiteral("Lastms"), qint64(0))
        .set(QStringLiteral("LastDTmode"), qint64(0))
        .set(QStringLiteral("LastRecNum"), qint64(0))
        .run(meter);
}

} // namespace lorvane::sim
