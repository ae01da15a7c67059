// SPDX-License-Identifier: GPL-3.0-or-later
#include "SchemaCatalog.h"

namespace lorvane {

const QStringList& SchemaCatalog::masterTables()
{
    static const QStringList names{QStringLiteral("ID_Table"),
                                   QStringLiteral("DeviceInformation"),
                                   QStringLiteral("AllLogs"),
                                   QStringLiteral("AllHistoricalLogs"),
                                   QStringLiteral("AllEnergyDemandLogs"),
                                   QStringLiteral("AllLimitsLogs"),
                                   QStringLiteral("AllInputLogs"),
                                   QStringLiteral("AllRelayLogs"),
                                   QStringLiteral("AllFlickerLogs"),
                                   QStringLiteral("AllWaveformLogs"),
                                   QStringLiteral("AllPQLogs"),
                                   QStringLiteral("AllSystemEventLogs")};
    return names;
}

const QStringList& SchemaCatalog::logTablePrefixes()
{
    static const QStringList names{QString(),
                                   QString(),
                                   QString(),
                                   QStringLiteral("HistLog_"),
                                   QStringLiteral("EDLog_"),
                                   QStringLiteral("LimitsLog_"),
                                   QStringLiteral("InputLog_"),
                                   QStringLiteral("RelayLog_"),
                                   QStringLiteral("Flicker_MaxMin_"),
                                   QStringLiteral("WaveformLog_"),
                                   QStringLiteral("PQLog_"),
                                   QStringLiteral("SystemEventLog_")};
    return names;
}

const QStringList& SchemaCatalog::logDisplayNames()
{
    static const QStringList names{QString(),
                                   QStringLiteral("Device ID Name"),
                                   QStringLiteral("File Path"),
                                   QStringLiteral("SnapShot Log"),
                                   QStringLiteral("Demands"),
                                   QStringLiteral("Limits Log"),
                                   QStringLiteral("Input Log"),
                                   QStringLiteral("Relay Log"),
                                   QStringLiteral("Flicker Log"),
                                   QStringLiteral("Waveform Log"),
                                   QStringLiteral("Power Quality Log"),
                                   QStringLiteral("System Event Log")};
    return names;
}

const QStringList& SchemaCatalog::companionTables()
{
    static const QStringList names{
        QStringLiteral("HistLogTimeIndex_"), QStringLiteral("EDLogTimeIndex_"),
        QStringLiteral("LimitsLogDataItem"), QStringLiteral("LimitsLogTimeIndex_"),
        QStringLiteral("PQWaveLogDataItem"), QStringLiteral("FullScales"),
        QStringLiteral("TagNames_"),         QStringLiteral("LogDevices_"),
        QStringLiteral("HistSubQuery_"),     QStringLiteral("HLogTimeIndex_"),
        QStringLiteral("PowerGraph_"),       QStringLiteral("RelayLogDataItem"),
        QStringLiteral("InputLogDataItem"),  QStringLiteral("RelayLogA"),
        QStringLiteral("InputLogA"),         QStringLiteral("Flicker_MaxMin"),
        QStringLiteral("SystemEventLogA"),   QStringLiteral("ScaledFormats"),
        QStringLiteral("HSInputLabels")};
    return names;
}

const QStringList& SchemaCatalog::snapshotTypeNames()
{
    static const QStringList names{QStringLiteral("All Snapshots"),
                                   QStringLiteral("Group By Type"),
                                   QStringLiteral("Log 1"),
                                   QStringLiteral("Log 2"),
                                   QStringLiteral("Limits"),
                                   QStringLiteral("Input"),
                                   QStringLiteral("Relay"),
                                   QStringLiteral("Flicker (Short)"),
                                   QStringLiteral("Waveform"),
                                   QStringLiteral("Power Quality"),
                                   QStringLiteral("Flicker (Long)"),
                                   QStringLiteral("System Event"),
                                   QStringLiteral("Test Mode (Log 1)"),
                                   QStringLiteral("Test Mode (Log 2)"),
                                   QStringLiteral("Log 1 Padding"),
                                   QStringLiteral("Log 2 Padding"),
                                   QStringLiteral("Log 3"),
                                   QStringLiteral("Log 3 Padding"),
                                   QStringLiteral("Log 3"),
                                   QStringLiteral("Log 4"),
                                   QStringLiteral("Log 5"),
                                   QStringLiteral("Log 6"),
                                   QStringLiteral("Log 7"),
                                   QStringLiteral("Log 8"),
                                   QStringLiteral("Event Triggered"),
                                   QStringLiteral("Transients")};
    return names;
}

QString SchemaCatalog::masterTable(int logKind)
{
    return masterTables().value(logKind);
}

QString SchemaCatalog::dayTable(LogKind kind, qint64 logTablesIndex)
{
    if (kind == LogKind::Snapshots || kind == LogKind::Demand)
        return {};
    const QString prefix = logTablePrefixes().value(static_cast<int>(kind));
    return prefix.isEmpty() ? QString() : prefix + QString::number(logTablesIndex);
}

QString SchemaCatalog::hourTimeIndexTable(LogKind kind, qint64 logTablesIndex, int hour)
{
    const QString base =
        kind == LogKind::Demand ? companionTables().at(1) : companionTables().at(0);
    return base + QString::number(logTablesIndex) + QLatin1Char('_') + QString::number(hour);
}

QString SchemaCatalog::hourValueTable(LogKind kind, qint64 logTablesIndex, int hour)
{
    return logTablePrefixes().at(static_cast<int>(kind)) + QString::number(logTablesIndex) +
           QLatin1Char('_') + QString::number(hour);
}

QString SchemaCatalog::snapshotTypeName(int typeId)
{
    return snapshotTypeNames().value(typeId);
}

} // namespace lorvane
