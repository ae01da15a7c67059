// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterSchema.h"

#include "SchemaCatalog.h"

namespace lorvane {

namespace {

using T = ColumnType;

QString s(const char* text)
{
    return QString::fromLatin1(text);
}

QString n(const char* pattern, int i)
{
    return QString::fromLatin1(pattern).arg(i);
}

/// The span columns that every master table answers to.
TableLayout& addSpan(TableLayout& layout)
{
    return layout.add(s("Records"), T::Long, s("0"))
        .add(s("StartDate/Time"), T::Date)
        .add(s("EndDate/Time"), T::Date);
}

TableLayout hourMaster(const char* name)
{
    TableLayout layout(s(name));
    layout.add(s("Date/Time"), T::Date).add(s("LogTablesIndex"), T::Long);
    for (int h = 0; h < 24; ++h)
        layout.add(n("Hour_%1", h), T::Bit, s("0"));
    for (int h = 0; h < 24; ++h)
        layout.add(n("Recs_%1", h), T::Long, s("0"));
    return addSpan(layout);
}

QStringList numbered(const char* pattern, int first, int last)
{
    QStringList names;
    for (int i = first; i <= last; ++i)
        names << n(pattern, i);
    return names;
}

TableLayout dayMaster(const char* name)
{
    TableLayout layout(s(name));
    layout.add(s("Date/Time"), T::Date)
        .add(s("LogTablesIndex"), T::Long)
        .add(s("HTable"), T::Bit, s("0"))
        .add(s("Recs"), T::Long, s("0"));
    return addSpan(layout);
}

} // namespace

MeterSchema::MeterSchema(double version) : m_version(version)
{
}

bool MeterSchema::before(double version) const
{
    return m_version < version - 1e-9;
}

ColumnType MeterSchema::fractionType() const
{
    return m_version >= 9.0 - 1e-9 ? T::Double : T::Integer;
}

QList<TableLayout> MeterSchema::fileTables() const
{
    QList<TableLayout> tables;
    tables << TableLayout(s("ID_Table")).add(s("Version"), T::Double).add(s("Note"), T::Text);

    tables << TableLayout(s("DeviceInformation"))
                  .add(s("DeviceTypeID"), T::Long)
                  .add(s("DeviceType"), T::Text)
                  .add(s("Address"), T::Text)
                  .add(s("HardwareName"), T::Text)
                  .add(s("HardwareID"), T::Text)
                  .add(s("HardwareTypeName"), T::Text, s("'N/A'"))
                  .add(s("KGate"), T::Long);

    TableLayout allLogs(s("AllLogs"));
    allLogs.add(s("EntryDate/Time"), T::Date)
        .add(s("LogOptionName"), T::Text)
        .add(s("HarvesterVersion"), T::Text, s("'N/A'"))
        .add(s("HarvesterInfo"), T::Text, s("'N/A'"))
        .add(s("DownloadSoftwareInfo"), T::Text, s("'N/A'"));
    for (int i = 1; i <= 5; ++i)
        allLogs.add(n("FirmwareInfo%1", i), T::Text, s("'N/A'"));
    tables << allLogs;

    tables << TableLayout(s("DataPoints")).add(s("DataID"), T::Long);
    tables << TableLayout(s("LastTimeStamps"))
                  .add(s("LogID"), T::Long)
                  .add(s("LogName"), T::Text)
                  .add(s("LastDateTime"), T::Date)
                  .add(s("Lastms"), T::Long)
                  .add(s("LastDTmode"), T::Long)
                  .add(s("LastRecNum"), T::Long);
    tables << TableLayout(s("ScaledFormats"))
                  .add(s("ProfileIndex"), T::Long, s("0"))
                  .add(s("FormatID"), T::Long, s("0"))
                  .add(s("Digits"), T::Short, s("0"))
                  .add(s("Units"), T::Short, s("0"))
                  .add(s("Decimals"), T::Short, s("0"));
    if (m_version >= 9.1 - 1e-9) {
        tables << TableLayout(s("User_Defined_Item_Labels"))
                      .add(s("ProfileIndex"), T::Long)
                      .add(s("Item_Index"), T::Long)
                      .add(s("Label"), T::Text);
    }

    tables << hourMaster("AllHistoricalLogs") << hourMaster("AllEnergyDemandLogs");
    for (const char* name : {"AllLimitsLogs", "AllInputLogs", "AllRelayLogs", "AllFlickerLogs",
                             "AllWaveformLogs", "AllPQLogs"})
        tables << dayMaster(name);
    tables << dayMaster("AllSystemEventLogs")
                  .index(s("Index"), {s("LogTablesIndex")}, true)
                  .index(s("PrimaryKey"), {s("Date/Time")}, true);

    TableLayout pqTests(s("AllPQTestLogs"));
    pqTests.add(s("ID_PQTest"), T::Long)
        .add(s("StartTime"), T::Date)
        .add(s("EndTime"), T::Date)
        .add(s("Freq"), T::Double);
    const char* statistics[] = {"Freq", "LSV", "FVF", "Flicker", "SVU", "Harmonic", "THD"};
    for (const char* name : statistics)
        pqTests.add(s("S_") + s(name), T::Integer);
    for (const char* name : statistics)
        pqTests.add(s("P_") + s(name), T::Single);
    for (int i = 1; i <= 170; ++i)
        pqTests.add(n("bin_%1", i), T::Double);
    pqTests.add(s("NominalVoltage"), T::Double).index(s("id"), {s("ID_PQTest")}, true);
    tables << pqTests;

    TableLayout limitItems(s("LimitsLogDataItem"));
    limitItems.add(s("LinkIndex"), T::Long)
        .add(s("DataID"), T::Long)
        .add(s("LimitID"), T::Long)
        .add(s("LSet"), T::Double)
        .add(s("LSAB"), T::Text)
        .add(s("LSet%"), T::Double)
        .add(s("DataIndex"), T::Long)
        .add(s("RecordFormat"), T::Long)
        .index(s("LinkIndex"), {s("LinkIndex")}, true);
    tables << limitItems;

    TableLayout waveItems(s("PQWaveLogDataItem"));
    waveItems.add(s("Index"), T::Long)
        .add(s("HookUp"), T::Long)
        .add(s("SampleRate"), T::Long)
        .add(s("CaptureNum"), T::Long)
        .add(s("RecordFormat"), T::Long)
        .add(s("PQEnables"), T::Long)
        .add(s("PQEnables_Input"), T::Long)
        .add(s("WaveEnables"), T::Long)
        .add(s("WaveEnables_Input"), T::Long);
    for (int i = 0; i < 12; ++i) {
        waveItems.add(n("C%1_L1SAB", i), T::Text)
            .add(n("C%1_L1", i), T::Double)
            .add(n("C%1_L2SAB", i), T::Text)
            .add(n("C%1_L2", i), T::Double);
    }
    tables << waveItems;

    TableLayout fullScales(s("FullScales"));
    fullScales.add(s("Index"), T::Long);
    for (int i = 1; i <= 8; ++i)
        fullScales.add(n("FullScale%1", i), T::Double);
    for (int i = 1; i <= 4; ++i)
        fullScales.add(n("PTCT_Ratio%1", i), T::Text);
    tables << fullScales;

    tables << TableLayout(s("InputLogDataItem"))
                  .add(s("Index"), T::Long)
                  .add(s("ModuleIndex"), T::Integer)
                  .add(s("ModulePort"), T::Byte)
                  .add(s("ModuleAddress"), T::Long)
                  .add(s("InputIndex"), T::Integer)
                  .add(s("ModuleLabel"), T::Text)
                  .add(s("InputLabel"), T::Text)
                  .add(s("TextLabel_0"), T::Text)
                  .add(s("TextLabel_1"), T::Text)
                  .add(s("NormalState"), T::Integer)
                  .add(s("InputFlip"), T::Long, s("0"));

    TableLayout relayItems(s("RelayLogDataItem"));
    relayItems.add(s("Index"), T::Long)
        .add(s("ModuleIndex"), T::Integer)
        .add(s("ModuleAddress"), T::Long)
        .add(s("ModuleLabel"), T::Text)
        .add(s("ModulePort"), T::Byte)
        .add(s("ModuleSlot"), T::Byte)
        .add(s("RelayIndex"), T::Integer)
        .add(s("RelayLabel"), T::Text)
        .add(s("SetDelay"), T::Byte)
        .add(s("ResetDelay"), T::Byte);
    for (int i = 1; i <= 44; ++i)
        relayItems.add(n("LogicStr%1", i), T::Text);
    for (int i = 1; i <= 8; ++i)
        relayItems.add(n("LogicComb%1", i), T::Byte);
    relayItems.add(s("TextLabel_0"), T::Text)
        .add(s("TextLabel_1"), T::Text)
        .add(s("NormalState"), T::Byte);
    for (int i = 1; i <= 8; ++i)
        relayItems.add(n("Logic%1Type", i), T::Integer);
    for (int i = 1; i <= 8; ++i)
        relayItems.add(n("Logic%1ID", i), T::Long);
    relayItems.add(s("Hysteresis"), T::Long, s("0")).add(s("LogicControl"), T::Long, s("0"));
    tables << relayItems;

    TableLayout inputLabels(s("HSInputLabels"));
    inputLabels.add(s("Index"), T::Long, s("0"));
    for (int i = 1; i <= 8; ++i) {
        inputLabels.add(n("Input_%1_Label", i), T::Text)
            .add(n("Input_%1_0", i), T::Text)
            .add(n("Input_%1_1", i), T::Text)
            .add(n("Input_%1_Normal", i), T::Short, s("0"));
    }
    tables << inputLabels;

    // Empty layout tables that the per-day tables copy.
    tables << hourTimeIndex().renamed(s("HistLogTimeIndexTmp")) << inputLog() << relayLog()
           << flickerMaxMin() << systemEventLog();
    if (before(currentVersion))
        leaveOutLaterAdditions(tables);
    return tables;
}

void MeterSchema::leaveOutLaterAdditions(QList<TableLayout>& tables) const
{
    // Tables that a later step creates, and the columns that later steps add to a table,
    // each with the version of that step. Per-day tables and the demand hour tables are not
    // touched by any step, so they keep their layout at every version.
    struct Addition
    {
        double version;
        const char* table;
        QStringList columns; ///< empty: the step creates the whole table
    };
    QStringList statusColumns;
    for (const char* extreme : {"Max", "Min"}) {
        for (const char* term : {"ST", "LT"}) {
            for (const char* phase : {"Va", "Vb", "Vc"})
                statusColumns << s(extreme) + QLatin1Char('_') + s(term) + s("_DT_") + s(phase) +
                                     s("_Status");
        }
    }
    const Addition additions[] = {
        {7.6, "PQWaveLogDataItem", {s("RecordFormat")}},
        {7.9, "AllLogs", {s("HarvesterVersion"), s("HarvesterInfo")}},
        {7.9, "InputLogA", {}},
        {7.9, "InputLogDataItem", {}},
        {7.9, "RelayLogA", {}},
        {7.9, "RelayLogDataItem", {}},
        {8.0, "InputLogDataItem", {s("InputFlip")}},
        {8.0, "AllLogs", QStringList{s("DownloadSoftwareInfo")} + numbered("FirmwareInfo%1", 1, 5)},
        {8.0, "DeviceInformation", {s("HardwareTypeName")}},
        {8.0, "RelayLogA", QStringList{s("InputStatusB")} + numbered("InputInfo%1", 19, 54)},
        {8.0, "RelayLogDataItem",
         numbered("LogicStr%1", 9, 44) + QStringList{s("Hysteresis"), s("LogicControl")}},
        {8.1, "Flicker_MaxMin", {}},
        {8.2, "Flicker_MaxMin", statusColumns},
        {8.3, "HistLogTimeIndexTmp", {s("ProfileIndex")}},
        {8.3, "ScaledFormats", {}},
        {8.4, "AllSystemEventLogs", {}},
        {8.4, "SystemEventLogA", {}},
        {8.5, "HSInputLabels", {}},
        {8.6, "AllPQTestLogs", {}},
    };
    for (const Addition& addition : additions) {
        if (!before(addition.version))
            continue;
        for (qsizetype i = tables.size() - 1; i >= 0; --i) {
            if (tables.at(i).name() != s(addition.table))
                continue;
            if (addition.columns.isEmpty())
                tables.removeAt(i);
            else
                tables[i] = tables.at(i).without(addition.columns);
        }
    }
    // From 8.3, when the step makes it, to 8.5, whose step deletes it, ScaledFormats carries
    // a unique index on FormatID.
    if (before(8.5)) {
        for (TableLayout& table : tables) {
            if (table.name() == s("ScaledFormats"))
                table.index(s("FormatID"), {s("FormatID")}, true);
        }
    }
}

TableLayout MeterSchema::table(const QString& name) const
{
    for (const TableLayout& layout : fileTables()) {
        if (layout.name().compare(name, Qt::CaseInsensitive) == 0)
            return layout;
    }
    return {};
}

TableLayout MeterSchema::hourTimeIndex() const
{
    return TableLayout(s("HistLogTimeIndex"))
        .add(s("Date/TimeIndex"), T::Long)
        .add(s("Date/Time"), T::Date)
        .add(s("ms"), T::Integer)
        .add(s("DTmode"), T::Integer)
        .add(s("TypeID"), T::Integer)
        .add(s("ProfileIndex"), T::Long, s("0"));
}

TableLayout MeterSchema::hourValues() const
{
    return TableLayout(s("HistLog"))
        .add(s("Date/TimeIndex"), T::Long)
        .add(s("DataID"), T::Long)
        .add(s("Value"), T::Double);
}

TableLayout MeterSchema::limitsLog() const
{
    return TableLayout(s("LimitsLog"))
        .add(s("StartDate/Time"), T::Date)
        .add(s("Startms"), T::Integer)
        .add(s("SDTmode"), T::Integer)
        .add(s("EndDate/Time"), T::Date)
        .add(s("Endms"), T::Integer)
        .add(s("EDTmode"), T::Integer)
        .add(s("LState"), T::Text)
        .add(s("Duration"), T::Double)
        .add(s("LValue"), T::Double)
        .add(s("DescriptionCode"), T::Integer)
        .add(s("LinkIndex"), T::Long);
}

TableLayout MeterSchema::pqLog() const
{
    return TableLayout(s("PQLog"))
        .add(s("StartDate/Time"), T::Date)
        .add(s("Startms"), fractionType())
        .add(s("SDTmode"), T::Integer)
        .add(s("EndDate/Time"), T::Date)
        .add(s("Endms"), fractionType())
        .add(s("EDTmode"), T::Integer)
        .add(s("Duration"), T::Double)
        .add(s("ConditionName"), T::Text)
        .add(s("ChannelName"), T::Text)
        .add(s("ChannelID"), T::Long)
        .add(s("PQValue"), T::Double)
        .add(s("PQ%"), T::Double)
        .add(s("WaveformLink"), T::Bit)
        .add(s("ConditionCode"), T::Long)
        .add(s("SWNumber"), T::Long)
        .add(s("EWNumber"), T::Long)
        .add(s("SSample"), T::Long)
        .add(s("ESample"), T::Long)
        .add(s("Index"), T::Long)
        .add(s("RecCounter"), T::Long);
}

TableLayout MeterSchema::waveformLog() const
{
    TableLayout layout(s("WaveformLog"));
    layout.add(s("Index"), T::Long)
        .add(s("RecCounter"), T::Long)
        .add(s("Date/Time"), T::Date)
        .add(s("ms"), fractionType())
        .add(s("WSDT"), T::Date)
        .add(s("WSms"), fractionType())
        .add(s("WSDTmode"), T::Integer)
        .add(s("WEDT"), T::Date)
        .add(s("WEms"), fractionType())
        .add(s("WEDTmode"), T::Integer)
        .add(s("WDuration"), T::Double)
        .add(s("WTDate/Time"), T::Date)
        .add(s("WTms"), fractionType())
        .add(s("WTDTmode"), T::Integer)
        .add(s("TriggeredBy1"), T::Text)
        .add(s("WaveformNumber"), T::Long)
        .add(s("WaveformTriggerNumber"), T::Long)
        .add(s("OrigWNumber"), T::Long)
        .add(s("Contiguous"), T::Bit)
        .add(s("CaptureSequence"), T::Long);
    for (int i = 0; i < 12; ++i)
        layout.add(n("V%1", i), T::Double);
    for (int i = 0; i < 15; ++i)
        layout.add(n("sample%1", i), T::Memo);
    return layout.add(s("SampleRate"), T::Long)
        .add(s("SampleInTriggerCyc"), T::Long)
        .add(s("EndTriggerCycPT"), T::Long)
        .add(s("TimingPT"), T::Long)
        .add(s("Mode"), T::Long)
        .add(s("OrigFirstWave"), T::Long)
        .add(s("OrigFirstSample"), T::Long);
}

TableLayout MeterSchema::inputLog() const
{
    return TableLayout(s("InputLogA"))
        .add(s("Index"), T::Long)
        .add(s("DT1"), T::Date)
        .add(s("ms1"), T::Integer)
        .add(s("DT1mode"), T::Integer)
        .add(s("DT2"), T::Date)
        .add(s("ms2"), T::Integer)
        .add(s("DT2mode"), T::Integer)
        .add(s("ModuleIndex"), T::Integer)
        .add(s("InputIndex"), T::Integer)
        .add(s("Status"), T::Byte)
        .add(s("DescriptionCode"), T::Integer)
        .add(s("Duration"), T::Double);
}

TableLayout MeterSchema::relayLog() const
{
    TableLayout layout(s("RelayLogA"));
    layout.add(s("Index"), T::Long)
        .add(s("ModuleIndex"), T::Integer)
        .add(s("RelayIndex"), T::Integer);
    for (int i = 1; i <= 3; ++i) {
        layout.add(n("DT%1", i), T::Date)
            .add(n("ms%1", i), T::Integer)
            .add(n("DT%1mode", i), T::Integer);
    }
    for (int i = 1; i <= 3; ++i)
        layout.add(n("DT%1CK", i), T::Integer);
    layout.add(s("Duration12"), T::Double)
        .add(s("Duration23"), T::Double)
        .add(s("Duration13"), T::Double);
    for (int i = 0; i <= 3; ++i)
        layout.add(n("Condition%1", i), T::Integer, s("-1"));
    for (int i = 0; i <= 3; ++i)
        layout.add(n("Condition%1Text", i), T::Text);
    for (int i = 11; i <= 54; ++i)
        layout.add(n("InputInfo%1", i), T::Text);
    return layout.add(s("InputStatus"), T::Long)
        .add(s("InputStatusB"), T::Long, s("0"))
        .add(s("GateStatus"), T::Long)
        .add(s("GIndex"), T::Long); // the record's number, unique in the file
}

TableLayout MeterSchema::flickerMaxMin() const
{
    TableLayout layout(s("Flicker_MaxMin"));
    layout.add(s("Index"), T::Long)
        .add(s("FS_DT"), T::Date)
        .add(s("FS_ms"), T::Integer)
        .add(s("FS_DTmode"), T::Integer)
        .add(s("FE_DT"), T::Date)
        .add(s("FE_ms"), T::Integer)
        .add(s("FE_DTmode"), T::Integer)
        .add(s("F_Status"), T::Integer);
    for (const char* extreme : {"Max", "Min"}) {
        for (const char* term : {"ST", "LT"}) {
            for (const char* phase : {"Va", "Vb", "Vc"}) {
                const QString stem = s(extreme) + QLatin1Char('_') + s(term);
                const QString p = s(phase);
                layout.add(stem + s("_DT_") + p, T::Date)
                    .add(stem + s("_ms_") + p, T::Integer)
                    .add(stem + s("_DTmode_") + p, T::Integer)
                    .add(stem + QLatin1Char('_') + p, T::Double)
                    .add(stem + s("_DT_") + p + s("_Status"), T::Long);
            }
        }
    }
    return layout;
}

TableLayout MeterSchema::systemEventLog() const
{
    TableLayout layout(s("SystemEventLogA"));
    layout.add(s("Index"), T::Long)
        .add(s("Date/Time"), T::Date)
        .add(s("ms"), T::Short)
        .add(s("DTmode"), T::Short)
        .add(s("InTestMode"), T::Bit, s("0"));
    for (int i = 0; i <= 7; ++i)
        layout.add(n("EV%1", i), T::Short, s("0"));
    return layout.add(s("EventType"), T::Text, s("'N/A'"))
        .add(s("Description"), T::Text, s("'N/A'"))
        .add(s("Sequence"), T::Long)
        .index(s("LinkIndex"), {s("Index")}, false);
}

TableLayout MeterSchema::dayTable(LogKind kind, qint64 logTablesIndex) const
{
    const QString name = SchemaCatalog::dayTable(kind, logTablesIndex);
    switch (kind) {
    case LogKind::Limits:
        return limitsLog().renamed(name);
    case LogKind::Inputs:
        return inputLog().renamed(name);
    case LogKind::Relays:
        return relayLog().renamed(name);
    case LogKind::Flicker:
        return flickerMaxMin().renamed(name);
    case LogKind::Waveform:
        return waveformLog().renamed(name);
    case LogKind::PowerQuality:
        return pqLog().renamed(name);
    case LogKind::SystemEvent:
        return systemEventLog().renamed(name);
    default:
        return {};
    }
}

TableLayout MeterSchema::hourTimeIndexTable(LogKind kind, qint64 logTablesIndex, int hour) const
{
    TableLayout layout =
        hourTimeIndex().renamed(SchemaCatalog::hourTimeIndexTable(kind, logTablesIndex, hour));
    // The 8.3 step adds ProfileIndex to the snapshot hour tables only.
    if (kind == LogKind::Snapshots && before(8.3))
        return layout.without({s("ProfileIndex")});
    return layout;
}

TableLayout MeterSchema::hourValueTable(LogKind kind, qint64 logTablesIndex, int hour) const
{
    return hourValues().renamed(SchemaCatalog::hourValueTable(kind, logTablesIndex, hour));
}

} // namespace lorvane
