// SPDX-License-Identifier: GPL-3.0-or-later
#include "SetupRecordViews.h"

#include "GridCellText.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "store/SystemEventTexts.h"

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
    SqlStatement select = scratch.prepare(
        QStringLiteral("SELECT * FROM %1 WHERE [DeviceIndex] = ? AND [Index] = ? AND "
                       "[ModuleIndex] = ? AND %2 = ? LIMIT 1")
            .arg(SqlIdentifier::quote(table), SqlIdentifier::quote(itemColumn)));
    select.bindAll(key);
    QVariantMap row;
    if (select.next()) {
        for (int c = 0; c < select.columnCount(); ++c)
            row.insert(select.columnName(c), select.value(c));
    }
    return row;
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
    const QString table = numbers.sliceTable(QStringLiteral("PQWaveLogDataItem_"));
    SqlStatement select = scratch.prepare(
        QStringLiteral("SELECT * FROM %1 WHERE [DeviceIndex] = ? AND [Index] = ? LIMIT 1")
            .arg(SqlIdentifier::quote(table)));
    select.bindAll({deviceIndex, index});
    QVariantMap row;
    if (select.next()) {
        for (int c = 0; c < select.columnCount(); ++c)
            row.insert(select.columnName(c), select.value(c));
    }
    GridTable grid;
    grid.caption = userText("406040", "Show PQ/Waveform Settings");
    grid.columns = QStringList{userText("406071", "Item"), userText("406072", "Setting")};
    const QVariant hookUp = row.value(QStringLiteral("HookUp"));
    grid.rows << QStringList{userText("406073", "Device"), QString::number(deviceIndex + 1)};
    grid.rowPictures << QString();
    grid.rows << QStringList{userText("406074", "HookUp"),
                             row.isEmpty() ? QString() : hookUpWord(hookUp)};
    grid.rowPictures << (row.isEmpty() ? QString() : hookUpPicture(hookUp));
    const QList<QPair<QString, QString>> named{
        {userText("406075", "Sampling Rate"), QStringLiteral("SampleRate")},
        {userText("406076", "Capture Num"), QStringLiteral("CaptureNum")},
    };
    QStringList shown{QStringLiteral("HookUp"), QStringLiteral("Index")};
    for (const auto& [head, column] : named) {
        grid.rows << QStringList{head, GridCellText::value(row.value(column))};
        grid.rowPictures << QString();
        shown << column;
    }
    for (const QString& column : scratch.columns(table)) {
        if (!shown.contains(column) && !isDeviceIndex(column)) {
            grid.rows << QStringList{column, GridCellText::value(row.value(column))};
            grid.rowPictures << QString();
        }
    }
    for (int r = 0; r < grid.rows.size(); ++r)
        grid.rowKeys << QVariantMap{};
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
        return comb.isNull() || !comb.isValid() ? QString() : texts.logicOperator(comb.toInt());
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
            const qint64 bits = row.value(QStringLiteral("LogicComb%1").arg(n)).toLongLong();
            if (bits & 1)
                text += QStringLiteral(", ") + userText("404078", "first input is inverted");
            if (bits & 2)
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
