// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformSettings.h"

#include "EventCellText.h"
#include "FullScalesLoader.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"

namespace lorvane {

namespace {

/// One row of a setting table (a row of a scratch table), empty when there is none.
QVariantMap settingRow(SqliteDatabase& db, const QString& table, qint64 device, qint64 index)
{
    SqlStatement select =
        db.prepare(QStringLiteral("SELECT * FROM %1 WHERE [DeviceIndex] = ? AND [Index] = ?")
                       .arg(SqlIdentifier::quote(table)));
    select.bindAll({device, index});
    QVariantMap row;
    if (select.next()) {
        for (int c = 0; c < select.columnCount(); ++c)
            row.insert(select.columnName(c), select.value(c));
    }
    return row;
}

QString yes(const QVariant& mask, int bit)
{
    return mask.isValid() && !mask.isNull() && ((mask.toLongLong() >> bit) & 1)
               ? userText("403090", "Yes")
               : QString();
}

} // namespace

void WaveformSettings::load(SqliteDatabase& db, const QList<LogFileEntry>& files,
                            const QueryNumbers& numbers, const QStringList& logTables)
{
    FullScalesLoader::copyByIndex(db, files, logTables, QStringLiteral("PQWaveLogDataItem"),
                                  numbers.sliceTable(QStringLiteral("PQWaveLogDataItem_")));
    FullScalesLoader::copyByIndex(db, files, logTables, QStringLiteral("HSInputLabels"),
                                  numbers.sliceTable(QStringLiteral("HSInputLabels_")));
}

QString WaveformSettings::hookUpText(qint64 hookUp)
{
    switch (hookUp) {
    case 0:
        return userText("403091", "Wye");
    case 1:
        return userText("403092", "Delta, 3 CTs");
    case 2:
        return userText("403093", "Delta, 2 CTs");
    case 3:
        return userText("403094", "2.5 Element");
    case 4:
        return userText("403095", "4-Wire Delta");
    case 5:
        return userText("403096", "Open Delta");
    case 6:
        return userText("403097", "45S, Wye, 2 CTs");
    default:
        return userText("403098", "N/A");
    }
}

QString WaveformSettings::hookUpPicture(qint64 hookUp)
{
    static const QStringList pictures{QStringLiteral("WWye"), QStringLiteral("WDelta"),
                                      QStringLiteral("WDelta2"), QStringLiteral("W25Element"),
                                      QStringLiteral("WDeltaB")};
    return hookUp >= 0 && hookUp < pictures.size() ? pictures.at(static_cast<int>(hookUp))
                                                   : QString();
}

GridTable WaveformSettings::view(SqliteDatabase& db, const QueryNumbers& numbers,
                                 qint64 deviceIndex, qint64 index)
{
    const EventCellText cells(db, numbers, QStringLiteral("0.00"));
    const QVariantMap set = settingRow(db, numbers.sliceTable(QStringLiteral("PQWaveLogDataItem_")),
                                       deviceIndex, index);
    const QVariantMap scales =
        settingRow(db, numbers.sliceTable(QStringLiteral("FullScales_")), deviceIndex, index);
    const QVariantMap labels =
        settingRow(db, numbers.sliceTable(QStringLiteral("HSInputLabels_")), deviceIndex, index);
    const auto field = [](const QVariantMap& row, const QString& name) {
        const QVariant value = row.value(name);
        return value.isNull() ? QString() : value.toString();
    };

    GridTable grid;
    grid.caption = userText("403006", "Show PQ/Waveform Settings");
    grid.columns = {userText("403080", "Channel"),
                    userText("403073", "% of Full Scale"),
                    userText("403081", "Set Value"),
                    userText("403082", "Enabled"),
                    userText("403083", "Waveform Setpoint 1"),
                    userText("403084", "Waveform Setpoint 2")};
    const auto add = [&grid](QStringList row, const QString& picture = {}) {
        while (row.size() < grid.columns.size())
            row << QString();
        grid.rows << row;
        grid.rowKeys << QVariantMap{};
        grid.rowPictures << picture;
    };

    const bool found = !set.isEmpty();
    const qint64 hookUp = set.value(QStringLiteral("HookUp")).toLongLong();
    add({userText("403015", "Device"), cells.deviceName(deviceIndex)});
    add({userText("403085", "HookUp"), found ? hookUpText(hookUp) : QString()},
        found ? hookUpPicture(hookUp) : QString());
    add({userText("403086", "Sampling Rate"), field(set, QStringLiteral("SampleRate"))});
    add({userText("403087", "Capture Num"), field(set, QStringLiteral("CaptureNum"))});
    QString items;
    if (found) {
        // Format -1 records voltages and currents, any other format the voltages alone.
        items = userText("403088", "V a, b, c");
        if (set.value(QStringLiteral("RecordFormat")).toLongLong() == -1)
            items += QStringLiteral("; ") + userText("403089", "I a, b, c");
    }
    add({userText("403099", "Capture Item(s)"), items});

    // Channel rows: name, column prefix C{n} (also the bit of the enable masks) and the full
    // scale its percentages refer to.
    struct Channel
    {
        const char* id;
        const char* name;
        int prefix;
        int fullScale;
    };
    static const Channel channels[] = {{"403100", "Van", 0, 1},  {"403101", "Vbn", 1, 1},
                                       {"403102", "Vcn", 2, 1},  {"403103", "Vab", 9, 4},
                                       {"403104", "Vbc", 10, 4}, {"403105", "Vca", 11, 4},
                                       {"403106", "Ia", 4, 5},   {"403107", "Ib", 5, 5},
                                       {"403108", "Ic", 6, 5},   {"403109", "In", 8, 5}};
    for (const Channel& channel : channels) {
        const QVariant scale = scales.value(QStringLiteral("FullScale%1").arg(channel.fullScale));
        const auto setPoint = [&](int n) {
            const QString stem = QStringLiteral("C%1_L%2").arg(channel.prefix).arg(n);
            const QVariant percent = set.value(stem);
            if (percent.isNull() || !percent.isValid())
                return QString();
            QString text = field(set, stem + QStringLiteral("SAB")) + QLatin1Char(' ') +
                           QString::number(percent.toDouble()) + QLatin1Char('%');
            if (scale.isValid() && !scale.isNull())
                text += QStringLiteral(" (") +
                        cells.value(percent.toDouble() * scale.toDouble() / 100.0) +
                        QLatin1Char(')');
            return text;
        };
        add({userText(channel.id, channel.name),
             scale.isNull() || !scale.isValid() ? QString() : cells.value(scale.toDouble()),
             yes(set.value(QStringLiteral("WaveEnables")), channel.prefix),
             yes(set.value(QStringLiteral("PQEnables")), channel.prefix), setPoint(1),
             setPoint(2)});
    }

    add({userText("403110", "Inputs"), userText("403111", "Enables"),
         userText("403112", "States")});
    for (int input = 1; input <= 8; ++input) {
        const QString stem = QStringLiteral("Input_%1_").arg(input);
        const QString states = labels.isEmpty() ? QString()
                                                : field(labels, stem + QStringLiteral("0")) +
                                                      QStringLiteral(" / ") +
                                                      field(labels, stem + QStringLiteral("1"));
        add({field(labels, stem + QStringLiteral("Label")),
             yes(set.value(QStringLiteral("WaveEnables_Input")), input - 1), states,
             yes(set.value(QStringLiteral("PQEnables_Input")), input - 1)});
    }

    add({userText("403113", "Full Scales")});
    static const char* const scaleNames[][2] = {
        {"403114", "V l-n"}, {"403115", "V aux"}, {"403116", "PT aux"},  {"403117", "V p-p"},
        {"403118", "CT n"},  {"403119", "W p"},   {"403120", "W total"}, {"403121", "Freq."}};
    for (int i = 0; i < 8; ++i) {
        const QVariant scale = scales.value(QStringLiteral("FullScale%1").arg(i + 1));
        add({userText(scaleNames[i][0], scaleNames[i][1]),
             scale.isNull() || !scale.isValid() ? QString() : cells.value(scale.toDouble())});
    }
    add({userText("403122", "Transformer"), userText("403123", "Ratios")});
    for (int i = 1; i <= 4; ++i) {
        add({userText("403124", "Ratio") + QLatin1Char(' ') + QString::number(i),
             field(scales, QStringLiteral("PTCT_Ratio%1").arg(i))});
    }
    return grid;
}

} // namespace lorvane
