// SPDX-License-Identifier: GPL-3.0-or-later
#include "SchemaCatalog.h"

#include "platform/UserText.h"

#include <initializer_list>

namespace lorvane {

namespace {

struct CatalogText
{
    const char* id; ///< null for a position that has no text
    const char* english;
};

// Made at each call rather than kept: the catalogue installed at start (or by a test) decides
// the language.
QStringList translated(std::initializer_list<CatalogText> texts)
{
    QStringList list;
    for (const CatalogText& text : texts)
        list << (text.id ? userText(text.id, text.english) : QString());
    return list;
}

} // namespace

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

QStringList SchemaCatalog::logDisplayNames()
{
    return translated({{nullptr, ""},
                       {"200101", "Device ID Name"},
                       {"200102", "File Path"},
                       {"200103", "SnapShot Log"},
                       {"200104", "Demands"},
                       {"200105", "Limits Log"},
                       {"200106", "Input Log"},
                       {"200107", "Relay Log"},
                       {"200108", "Flicker Log"},
                       {"200109", "Waveform Log"},
                       {"200110", "Power Quality Log"},
                       {"200111", "System Event Log"}});
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

QStringList SchemaCatalog::snapshotTypeNames()
{
    return translated({{"200200", "All Snapshots"},
                       {"200201", "Group By Type"},
                       {"200202", "Log 1"},
                       {"200203", "Log 2"},
                       {"200204", "Limits"},
                       {"200205", "Input"},
                       {"200206", "Relay"},
                       {"200207", "Flicker (Short)"},
                       {"200208", "Waveform"},
                       {"200209", "Power Quality"},
                       {"200210", "Flicker (Long)"},
                       {"200211", "System Event"},
                       {"200212", "Test Mode (Log 1)"},
                       {"200213", "Test Mode (Log 2)"},
                       {"200214", "Log 1 Padding"},
                       {"200215", "Log 2 Padding"},
                       {"200216", "Log 3"},
                       {"200217", "Log 3 Padding"},
                       {"200218", "Log 3"},
                       {"200219", "Log 4"},
                       {"200220", "Log 5"},
                       {"200221", "Log 6"},
                       {"200222", "Log 7"},
                       {"200223", "Log 8"},
                       {"200224", "Event Triggered"},
                       {"200225", "Transients"}});
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
