// SPDX-License-Identifier: GPL-3.0-or-later
#include "SetupRecordViews.h"

#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/engine/EventCellText.h"
#include "query/engine/GridCellText.h"
#include "store/RelayGateByte.h"
#include "store/SystemEventTexts.h"

#include <QLocale>

namespace lorvane {

namespace {

bool isDeviceIndex(const QString& column)
{
    return column.compare(QLatin1String("DeviceIndex"), Qt::CaseInsensitive) == 0;
}

/// The one settings row of a (device, Index, module, input or relay), as column -> value; empty
/// when there is none.
QVariantMap settingRow(SqliteDatabase& scratch, const QString& table, const QString& itemColumn,
                       const QVariantList& key)
{
    return scratch.firstRow(
        QStringLiteral("SELECT * FROM %1 WHERE [DeviceIndex] = ? AND [Index] = ? AND "
                       "[ModuleIndex] = ? AND %2 = ? LIMIT 1")
            .arg(SqlIdentifier::quote(table), SqlIdentifier::quote(itemColumn)),
        key);
}

/// The row of a copied setting table for one (device, `Index`), as column -> value; empty when
/// there is none.
QVariantMap indexedRow(SqliteDatabase& scratch, const QString& table, qint64 deviceIndex,
                       qint64 index)
{
    return scratch.firstRow(
        QStringLiteral("SELECT * FROM %1 WHERE [DeviceIndex] = ? AND [Index] = ? LIMIT 1")
            .arg(SqlIdentifier::quote(table)),
        {deviceIndex, index});
}

bool isNumber(const QVariant& value)
{
    bool ok = false;
    if (value.isValid() && !value.isNull())
        value.toDouble(&ok);
    return ok;
}

/// Bit `n` of a stored enable mask; a NULL mask enables nothing.
bool bit(const QVariant& mask, int n)
{
    return isNumber(mask) && ((mask.toLongLong() >> n) & 1) != 0;
}

QString yes(bool on)
{
    return on ? userText("408007", "Yes") : QString();
}

/// The sense of a set point as the meter stores it, shown in the user's language.
QString senseWord(const QVariant& stored)
{
    const QString sense = stored.toString().trimmed();
    if (sense.compare(QLatin1String("Above"), Qt::CaseInsensitive) == 0)
        return userText("408008", "Above");
    if (sense.compare(QLatin1String("Below"), Qt::CaseInsensitive) == 0)
        return userText("408009", "Below");
    return sense;
}

/// Values in units (set values, full scales) with two decimals in the user's locale.
QString number(double value)
{
    return QLocale().toString(value, 'f', 2);
}

/// The channels a setting captures by its `RecordFormat`: 0 the voltages, 1 the currents, any
/// other format (-1 among them) both.
QString captureItems(const QVariant& recordFormat)
{
    const QString volts = userText("408024", "V a, b, c");
    const QString amps = userText("408025", "I a, b, c");
    if (isNumber(recordFormat) && recordFormat.toLongLong() == 0)
        return volts;
    if (isNumber(recordFormat) && recordFormat.toLongLong() == 1)
        return amps;
    return volts + QStringLiteral(", ") + amps;
}

} // namespace

GridTable SetupRecordViews::settingsGrid(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                         const QString& itemsBase, const QString& caption)
{
    const QString table = numbers.sliceTable(itemsBase);
    const QString item = scratch.columns(table).contains(QStringLiteral("RelayIndex"))
                             ? QStringLiteral("[RelayIndex]")
                             : QStringLiteral("[InputIndex]");
    GridTable grid;
    grid.caption = caption;
    SqlStatement select = scratch.prepare(
        QStringLiteral("SELECT * FROM %1 ORDER BY [DeviceIndex], [Index], [ModuleIndex], %2")
            .arg(SqlIdentifier::quote(table), item));
    for (int c = 0; c < select.columnCount(); ++c)
        grid.columns << select.columnName(c);
    while (select.next()) {
        QStringList cells;
        for (int c = 0; c < select.columnCount(); ++c)
            cells << GridCellText::value(select.value(c));
        grid.rows << cells;
        grid.rowKeys << QVariantMap{
            {QStringLiteral("DeviceIndex"), select.value(QStringLiteral("DeviceIndex"))},
            {QStringLiteral("Index"), select.value(QStringLiteral("Index"))}};
        grid.rowPictures << QString();
    }
    return grid;
}

GridTable SetupRecordViews::inputSetting(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                         qint64 deviceIndex, qint64 index, qint64 moduleIndex,
                                         qint64 inputIndex)
{
    const QString table = numbers.sliceTable(QStringLiteral("InputLogDataItem_"));
    const QVariantMap row = settingRow(scratch, table, QStringLiteral("InputIndex"),
                                       {deviceIndex, index, moduleIndex, inputIndex});
    GridTable grid;
    grid.caption = userText("404060", "Show Input Settings");
    grid.columns = QStringList{userText("404062", "Setting"), userText("404063", "Value")};
    const QList<QPair<QString, QString>> named{
        {userText("404011", "Module Name"), QStringLiteral("ModuleLabel")},
        {userText("404012", "Input Name"), QStringLiteral("InputLabel")},
        {userText("404009", "Module Index"), QStringLiteral("ModuleIndex")},
        {userText("404064", "Module Address"), QStringLiteral("ModuleAddress")},
    };
    QStringList shown;
    for (const auto& [head, column] : named) {
        grid.rows << QStringList{head, GridCellText::value(row.value(column))};
        shown << column;
    }
    for (const QString& column : scratch.columns(table)) {
        if (!shown.contains(column) && !isDeviceIndex(column))
            grid.rows << QStringList{column, GridCellText::value(row.value(column))};
    }
    for (int r = 0; r < grid.rows.size(); ++r) {
        grid.rowKeys << QVariantMap{};
        grid.rowPictures << QString();
    }
    return grid;
}

GridTable SetupRecordViews::pqWaveSetting(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                          qint64 deviceIndex, qint64 index)
{
    const QVariantMap set = indexedRow(
        scratch, numbers.sliceTable(QStringLiteral("PQWaveLogDataItem_")), deviceIndex, index);
    const QVariantMap scales =
        indexedRow(scratch, numbers.sliceTable(QStringLiteral("FullScales_")), deviceIndex, index);
    const QVariantMap labels = indexedRow(
        scratch, numbers.sliceTable(QStringLiteral("HSInputLabels_")), deviceIndex, index);
    const auto cell = [](const QVariantMap& row, const QString& column) {
        return GridCellText::value(row.value(column));
    };

    GridTable grid;
    grid.caption = userText("406040", "Show PQ/Waveform Settings");
    // A label column and five value columns: the general rows use the first of them, the
    // channel block all five under its own heads.
    grid.columns = QStringList{userText("406071", "Item"), userText("406072", "Setting")};
    while (grid.columns.size() < 6)
        grid.columns << QString();
    const auto add = [&grid](QStringList cells, const QString& picture = QString()) {
        while (cells.size() < grid.columns.size())
            cells << QString();
        grid.rows << cells;
        grid.rowKeys << QVariantMap{};
        grid.rowPictures << picture;
    };

    const bool found = !set.isEmpty();
    const QVariant hookUp = set.value(QStringLiteral("HookUp"));
    add({userText("406073", "Device"),
         EventCellText(scratch, numbers, QStringLiteral("0.00")).deviceName(deviceIndex)});
    add({userText("406074", "HookUp"), found ? hookUpWord(hookUp) : QString()},
        found ? hookUpPicture(hookUp) : QString());
    add({userText("406075", "Sampling Rate"), cell(set, QStringLiteral("SampleRate"))});
    add({userText("406076", "Capture Num"), cell(set, QStringLiteral("CaptureNum"))});
    add({userText("408000", "Capture Item(s)"),
         found ? captureItems(set.value(QStringLiteral("RecordFormat"))) : QString()});

    // Channel block. Each channel names its column prefix C{n} (n is also its bit in the
    // enable masks) and the full scale that its percentages refer to.
    struct Channel
    {
        const char* id;
        const char* name;
        int number;
        int fullScale;
    };
    static constexpr Channel channels[] = {{"408010", "Van", 0, 1},  {"408011", "Vbn", 1, 1},
                                           {"408012", "Vcn", 2, 1},  {"408013", "Vab", 9, 4},
                                           {"408014", "Vbc", 10, 4}, {"408015", "Vca", 11, 4},
                                           {"408016", "Ia", 4, 5},   {"408017", "Ib", 5, 5},
                                           {"408018", "Ic", 6, 5},   {"408019", "In", 8, 5}};
    add({userText("408001", "Channel"), userText("408002", "% of Full Scale"),
         userText("408003", "Set Value"), userText("408004", "Enabled"),
         userText("408005", "Waveform Setpoint 1"), userText("408006", "Waveform Setpoint 2")});
    const QVariant pqEnables = set.value(QStringLiteral("PQEnables"));
    const QVariant waveEnables = set.value(QStringLiteral("WaveEnables"));
    for (const Channel& channel : channels) {
        const QVariant scale = scales.value(QStringLiteral("FullScale%1").arg(channel.fullScale));
        QStringList percents, values;
        bool point[2] = {false, false};
        for (int n = 1; n <= 2; ++n) {
            const QString stem = QStringLiteral("C%1_L%2").arg(channel.number).arg(n);
            const QVariant percent = set.value(stem);
            if (!isNumber(percent))
                continue;
            point[n - 1] = true;
            const QString sense = senseWord(set.value(stem + QStringLiteral("SAB")));
            percents << sense + QLatin1Char(' ') + QString::number(percent.toDouble());
            if (isNumber(scale))
                values << sense + QLatin1Char(' ') +
                              number(percent.toDouble() * scale.toDouble() / 100.0);
        }
        // A capture triggers at a set point when the channel takes part in captures at all.
        const bool waves = bit(waveEnables, channel.number);
        add({userText(channel.id, channel.name), percents.join(QStringLiteral(", ")),
             values.join(QStringLiteral(", ")), yes(bit(pqEnables, channel.number)),
             yes(waves && point[0]), yes(waves && point[1])});
    }

    // Inputs block: the high-speed inputs by their labels. The PQ enable sits in the column of
    // the channels' PQ enable.
    add({userText("408020", "Inputs"), userText("408021", "Enables"),
         userText("408022", "States")});
    const QVariant waveInputs = set.value(QStringLiteral("WaveEnables_Input"));
    const QVariant pqInputs = set.value(QStringLiteral("PQEnables_Input"));
    for (int input = 1; input <= 8; ++input) {
        const QString stem = QStringLiteral("Input_%1_").arg(input);
        QString name = cell(labels, stem + QStringLiteral("Label")).trimmed();
        if (name.isEmpty())
            name = userText("408023", "Input ") + QString::number(input);
        const QString off = cell(labels, stem + QStringLiteral("0"));
        const QString on = cell(labels, stem + QStringLiteral("1"));
        const QString states =
            off.isEmpty() && on.isEmpty() ? QString() : off + QStringLiteral(" / ") + on;
        add({name, yes(bit(waveInputs, input - 1)), states, yes(bit(pqInputs, input - 1))});
    }

    add({userText("408030", "Full Scales")});
    static constexpr const char* scaleNames[8][2] = {
        {"408031", "V l-n"}, {"408032", "V aux"}, {"408033", "PT aux"},  {"408034", "V p-p"},
        {"408035", "CT n"},  {"408036", "W p"},   {"408037", "W total"}, {"408038", "Freq."}};
    for (int i = 0; i < 8; ++i) {
        const QVariant scale = scales.value(QStringLiteral("FullScale%1").arg(i + 1));
        add({userText(scaleNames[i][0], scaleNames[i][1]),
             isNumber(scale) ? number(scale.toDouble()) : QString()});
    }
    add({userText("408040", "Transformer"), userText("408041", "Ratios")});
    static constexpr const char* ratioNames[4][2] = {
        {"408042", "PT"}, {"408033", "PT aux"}, {"408043", "CT"}, {"408035", "CT n"}};
    for (int i = 0; i < 4; ++i) {
        add({userText(ratioNames[i][0], ratioNames[i][1]),
             cell(scales, QStringLiteral("PTCT_Ratio%1").arg(i + 1))});
    }
    return grid;
}

GridTable SetupRecordViews::relaySetting(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                         qint64 deviceIndex, qint64 index, qint64 moduleIndex,
                                         qint64 relayIndex, int deviceTypeId)
{
    const QVariantMap row =
        settingRow(scratch, numbers.sliceTable(QStringLiteral("RelayLogDataItem_")),
                   QStringLiteral("RelayIndex"), {deviceIndex, index, moduleIndex, relayIndex});
    SystemEventTexts texts;
    texts.fill();
    const auto cell = [&](const char* column) {
        return GridCellText::value(row.value(QString::fromLatin1(column)));
    };
    const auto gate = [&](int n) {
        const QVariant comb = row.value(QStringLiteral("LogicComb%1").arg(n));
        return comb.isNull() || !comb.isValid()
                   ? QString()
                   : texts.logicOperator(RelayGateByte::decode(comb.toLongLong()).type);
    };
    GridTable grid;
    grid.caption = userText("404061", "Show Relay Settings");
    grid.columns = QStringList{userText("404065", "Item"), userText("404062", "Setting")};
    grid.rows = {
        {userText("404030", "Module/Card Name"), cell("ModuleLabel")},
        {userText("404031", "Relay Name"), cell("RelayLabel")},
        {userText("404066", "Module/Card Index"), cell("ModuleIndex")},
        {userText("404029", "Relay Index"), cell("RelayIndex")},
        {userText("404067", "Module/Card Address"), cell("ModuleAddress")},
        {userText("404068", "Module/Card Port"), cell("ModulePort")},
        {userText("404069", "Module/Card Slot"), cell("ModuleSlot")},
        {userText("404070", "Set Delay"), cell("SetDelay")},
        {userText("404071", "Reset Delay"), cell("ResetDelay")},
        {userText("404072", "Common shorted to N.C. (0)"), cell("TextLabel_0")},
        {userText("404073", "Common shorted to N.0. (1)"), cell("TextLabel_1")},
        {userText("404074", "Gate"), gate(1)},
        {userText("404075", "Hysteresis"), cell("Hysteresis")},
        {userText("404076", "Logic Control"), cell("LogicControl")},
    };
    for (int n = 1; n <= 44; ++n) {
        grid.rows << QStringList{
            userText("404077", "Logic Input #") + QString::number(n),
            GridCellText::value(row.value(QStringLiteral("LogicStr%1").arg(n)))};
    }
    // Device types with a gate table: the talmo (0), recorder (4) and split-log (5) meters.
    if (deviceTypeId == 0 || deviceTypeId == 4 || deviceTypeId == 5) {
        for (int n = 1; n <= 7; ++n) {
            QString text = gate(n);
            const RelayGateByte bits =
                RelayGateByte::decode(row.value(QStringLiteral("LogicComb%1").arg(n)).toLongLong());
            if (bits.firstInverted)
                text += QStringLiteral(", ") + userText("404078", "first input is inverted");
            if (bits.secondInverted)
                text += QStringLiteral(", ") + userText("404079", "second input is inverted");
            grid.rows << QStringList{userText("404080", "Gate ") + QChar(u'A' + (n - 1)), text};
        }
    }
    for (int r = 0; r < grid.rows.size(); ++r) {
        grid.rowKeys << QVariantMap{};
        grid.rowPictures << QString();
    }
    return grid;
}

QStringList SetupRecordViews::meterTables()
{
    return {QStringLiteral("DeviceInformation"), QStringLiteral("InputLogDataItem"),
            QStringLiteral("RelayLogDataItem"),  QStringLiteral("LimitsLogDataItem"),
            QStringLiteral("PQWaveLogDataItem"), QStringLiteral("FullScales"),
            QStringLiteral("HSInputLabels"),     QStringLiteral("ScaledFormats")};
}

GridTable SetupRecordViews::meterTable(SqliteDatabase& meter, const QString& table)
{
    GridTable grid;
    grid.caption = table;
    SqlStatement select = meter.prepare(
        QStringLiteral("SELECT * FROM %1 ORDER BY rowid").arg(SqlIdentifier::quote(table)));
    int hookUp = -1;
    for (int c = 0; c < select.columnCount(); ++c) {
        grid.columns << select.columnName(c);
        if (select.columnName(c).compare(QLatin1String("HookUp"), Qt::CaseInsensitive) == 0)
            hookUp = c;
    }
    while (select.next()) {
        QStringList cells;
        for (int c = 0; c < select.columnCount(); ++c)
            cells << (c == hookUp ? hookUpWord(select.value(c))
                                  : GridCellText::value(select.value(c)));
        grid.rows << cells;
        grid.rowKeys << QVariantMap{};
        grid.rowPictures << (hookUp >= 0 ? hookUpPicture(select.value(hookUp)) : QString());
    }
    return grid;
}

QString SetupRecordViews::hookUpWord(const QVariant& value)
{
    bool ok = false;
    const int n = value.toInt(&ok);
    switch (ok ? n : -1) {
    case 0:
        return userText("404081", "Wye");
    case 1:
        return userText("404082", "Delta, 3 CTs");
    case 2:
        return userText("404083", "Delta, 2 CTs");
    case 3:
        return userText("404084", "2.5 Element");
    case 4:
        return userText("404085", "4-Wire Delta");
    case 5:
        return userText("404086", "Open Delta");
    case 6:
        return userText("404087", "45S, Wye, 2 CTs");
    default:
        return userText("404088", "N/A");
    }
}

QString SetupRecordViews::hookUpPicture(const QVariant& value)
{
    static const char* const pictures[] = {"WWye", "WDelta", "WDelta2", "W25Element", "WDeltaB"};
    bool ok = false;
    const int n = value.toInt(&ok);
    return ok && n >= 0 && n < 5 ? QString::fromLatin1(pictures[n]) : QString();
}

} // namespace lorvane
