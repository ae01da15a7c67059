// SPDX-License-Identifier: GPL-3.0-or-later
#include "SortOptions.h"

#include "platform/UserText.h"

namespace lorvane {

namespace {

QStringList cols(std::initializer_list<const char*> names)
{
    QStringList out;
    for (const char* name : names)
        out << QString::fromLatin1(name);
    return out;
}

SortItem dateTimeItem(LogKind kind)
{
    return {userText("304001", "Date/Time"), SortOptions::timeColumns(kind)};
}

} // namespace

QStringList SortOptions::timeColumns(LogKind kind)
{
    switch (kind) {
    case LogKind::Snapshots:
    case LogKind::Demand:
    case LogKind::SystemEvent:
    case LogKind::Waveform:
        return cols({"[Date/Time]", "[ms]"});
    case LogKind::Limits:
    case LogKind::PowerQuality:
        return cols({"[StartDate/Time]", "[Startms]"});
    // Inputs and relays are read through a join of the log rows (A) with their settings (I):
    // the columns both tables hold are named with their table.
    case LogKind::Inputs:
        return cols({"A.[DT1]", "A.[ms1]", "A.[DT2]", "A.[ms2]"});
    case LogKind::Relays:
        return cols({"A.[DT1]", "A.[ms1]", "A.[DT2]", "A.[ms2]", "A.[DT3]", "A.[ms3]"});
    case LogKind::Flicker:
        return cols({"[FS_DT]", "[FS_ms]", "[FE_DT]", "[FE_ms]"});
    default:
        return {};
    }
}

QList<SortItem> SortOptions::items(LogKind kind, const QStringList& dataColumns)
{
    QList<SortItem> list{dateTimeItem(kind)};
    switch (kind) {
    case LogKind::Snapshots:
    case LogKind::Demand:
        for (const QString& column : dataColumns)
            list.append({column, {column}});
        break;
    case LogKind::Limits:
        list.append({userText("304002", "Data Point"), cols({"[TextName]"})});
        list.append({userText("304003", "Duration"), cols({"[Duration]"})});
        list.append({userText("304004", "State"), cols({"[LState]"})});
        list.append({userText("304005", "Value"), cols({"[LValue]"})});
        break;
    case LogKind::Inputs:
        list.append({userText("304003", "Duration"), cols({"A.[Duration]"})});
        list.append(
            {userText("304006", "Module/Input Name"), cols({"I.[ModuleLabel]", "I.[InputLabel]"})});
        list.append({userText("304007", "Module/Input Index"),
                     cols({"A.[ModuleIndex]", "A.[InputIndex]"})});
        list.append({userText("304004", "State"), cols({"A.[Status]"})});
        break;
    case LogKind::Relays:
        list.append({userText("304008", "Trigger to Command Duration"), cols({"A.[Duration12]"})});
        list.append(
            {userText("304009", "Command to Acknowledge Duration"), cols({"A.[Duration23]"})});
        list.append(
            {userText("304006", "Module/Input Name"), cols({"I.[ModuleLabel]", "I.[RelayLabel]"})});
        list.append({userText("304007", "Module/Input Index"),
                     cols({"A.[ModuleIndex]", "A.[RelayIndex]"})});
        list.append({userText("304010", "Start State"), cols({"A.[Condition0]"})});
        list.append({userText("304011", "End State"), cols({"A.[Condition3]"})});
        break;
    default:
        break;
    }
    return list;
}

QStringList SortOptions::itemTexts(LogKind kind, const QStringList& dataColumns)
{
    QStringList out;
    for (const SortItem& item : items(kind, dataColumns))
        out << item.text;
    return out;
}

int SortOptions::itemIndex(LogKind kind, const QString& text, const QStringList& dataColumns)
{
    if (text.isEmpty())
        return 0;
    const QStringList texts = itemTexts(kind, dataColumns);
    for (int i = 0; i < texts.size(); ++i) {
        if (texts.at(i).compare(text, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

QString SortOptions::directionWord(bool descending)
{
    return descending ? QStringLiteral("DESC") : QStringLiteral("ASC");
}

QStringList SortOptions::directionNames()
{
    return {userText("304012", "Ascending"), userText("304013", "Descending")};
}

QStringList SortOptions::snapshotGroupings()
{
    return {userText("304014", "All Snapshots"),
            userText("304015", "Group By Type"),
            userText("304016", "Log 1"),
            userText("304017", "Log 2"),
            userText("304018", "Limits"),
            userText("304019", "Input"),
            userText("304020", "Relay"),
            userText("304021", "Flicker (Short)"),
            userText("304022", "Waveform"),
            userText("304023", "Power Quality"),
            userText("304024", "Flicker (Long)"),
            userText("304025", "System Event"),
            userText("304026", "Test Mode (Log 1)"),
            userText("304027", "Test Mode (Log 2)"),
            userText("304028", "Log 1 Padding"),
            userText("304029", "Log 2 Padding"),
            userText("304030", "Log 3"),
            userText("304031", "Log 3 Padding"),
            userText("304030", "Log 3"),
            userText("304032", "Log 4"),
            userText("304033", "Log 5"),
            userText("304034", "Log 6"),
            userText("304035", "Log 7"),
            userText("304036", "Log 8"),
            userText("304037", "Event Triggered"),
            userText("304038", "Transients")};
}

QString SortOptions::orderBy(LogKind kind, const SortState& state, const QStringList& dataColumns)
{
    const QList<SortItem> list = items(kind, dataColumns);
    const int item = state.item >= 0 && state.item < list.size() ? state.item : 0;
    const QString dir = QLatin1Char(' ') + directionWord(state.descending);
    QStringList keys;
    for (const QString& column : list.at(item).columns)
        keys << column + dir;
    if (item != 0) {
        for (const QString& column : timeColumns(kind))
            keys << column + dir;
    }
    if (kind == LogKind::SystemEvent)
        keys << QStringLiteral("[Sequence]") + dir;
    const bool joined = kind == LogKind::Inputs || kind == LogKind::Relays;
    if (joined)
        keys << QStringLiteral("A.[DeviceIndex] ASC");
    // Rows equal in every key keep the order in which they were copied.
    keys << (joined ? QStringLiteral("A.rowid") : QStringLiteral("rowid")) + dir;
    return keys.join(QStringLiteral(", "));
}

} // namespace lorvane
