// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformGrid.h"

#include "platform/Fault.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/engine/EventCellText.h"

namespace lorvane {

QStringList WaveformGrid::typeNames()
{
    return {userText("403030", "All Waveforms"), userText("403031", "Waveform Log"),
            userText("403032", "Transient Log")};
}

QStringList WaveformGrid::columns()
{
    QStringList heads{
        userText("403010", "Start Date/Time"), userText("403011", "End Date/Time"),
        userText("403033", "Duration ms"),     userText("403034", "Trigger Date/Time"),
        userText("403035", "Start DTmode"),    userText("403036", "End DTmode"),
        userText("403037", "Trigger DTmode"),  userText("403015", "Device"),
        userText("403038", "Device Index"),    userText("403039", "Waveform Trigger"),
        userText("403040", "Capture #"),       userText("403041", "Trigger #"),
        userText("403042", "Contiguous"),      userText("403043", "Capture Sequence"),
        userText("403044", "Van RMS"),         userText("403045", "Vbn RMS"),
        userText("403046", "Vcn RMS"),         userText("403047", "Vaux RMS"),
        userText("403048", "Ia RMS"),          userText("403049", "Ib RMS"),
        userText("403050", "Ic RMS"),          userText("403051", "Inm RMS"),
        userText("403052", "In RMS"),          userText("403053", "Vab RMS"),
        userText("403054", "Vbc RMS"),         userText("403055", "Vca RMS"),
        userText("403056", "DL Index"),        userText("403057", "Record Index")};
    return heads;
}

GridTable WaveformGrid::fill(SqliteDatabase& db, const QueryNumbers& numbers, bool descending,
                             int typeFilter, const QString& dataFormat, const QString& condition,
                             const QVariantList& values)
{
    if (typeFilter < 0 || typeFilter >= typeNames().size()) {
        throw Fault(Fault::Kind::Other,
                    userText("403058", "Unknown waveform type") + QStringLiteral(": ") +
                        QString::number(typeFilter),
                    userText("403059", "Data Type"), {});
    }
    QStringList where;
    QVariantList bound;
    // The kind word of a capture stands anywhere in `sample0` (a CSV path on split meters).
    if (typeFilter == 1)
        where << QStringLiteral("instr(upper([sample0]), 'WAVEFORM') > 0");
    else if (typeFilter == 2)
        where << QStringLiteral("instr(upper([sample0]), 'TRANSIENT') > 0");
    if (!condition.isEmpty()) {
        where << QLatin1Char('(') + condition + QLatin1Char(')');
        bound << values;
    }
    const EventCellText cells(db, numbers, dataFormat);
    const QString order = EventCellText::orderBy(LogKind::Waveform, QString(), descending,
                                                 QStringLiteral("[DeviceIndex] ASC"));
    SqlStatement select = db.prepare(
        QStringLiteral(
            "SELECT *, instr(upper([sample0]), 'TRANSIENT') > 0 OR [Mode] = 2 AS Transient "
            "FROM %1 %2 ORDER BY %3")
            .arg(SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("WaveformLog_"))),
                 where.isEmpty() ? QString()
                                 : QStringLiteral("WHERE ") + where.join(QStringLiteral(" AND ")),
                 order));
    select.bindAll(bound);

    GridTable grid;
    grid.caption = userText("403004", "Show Waveforms");
    grid.columns = columns();
    const auto text = [&select](const char* column) {
        return select.value(QString::fromLatin1(column)).toString();
    };
    const auto tenth = StampedTime::Fraction::TenthMilliseconds;
    const auto stamp = [&](const char* clock, const char* ms) {
        return cells.stamp(text(clock), select.value(QString::fromLatin1(ms)).toDouble(), tenth);
    };
    while (select.next()) {
        const qint64 device = select.value(QStringLiteral("DeviceIndex")).toLongLong();
        QStringList row{stamp("WSDT", "WSms"),
                        stamp("WEDT", "WEms"),
                        QString::number(select.value(QStringLiteral("WDuration")).toDouble()),
                        stamp("WTDate/Time", "WTms"),
                        text("WSDTmode"),
                        text("WEDTmode"),
                        text("WTDTmode"),
                        cells.deviceName(device),
                        QString::number(device),
                        text("TriggeredBy1"),
                        text("WaveformNumber"),
                        text("WaveformTriggerNumber"),
                        text("Contiguous"),
                        text("CaptureSequence")};
        for (int v = 0; v < 12; ++v) {
            const QVariant rms = select.value(QStringLiteral("V%1").arg(v));
            row << (rms.isNull() ? QString() : cells.value(rms.toDouble()));
        }
        row << text("Index") << text("RecCounter");
        grid.rows << row;

        const bool transient = select.value(QStringLiteral("Transient")).toLongLong() != 0;
        const QString trigger = stamp("WTDate/Time", "WTms");
        const QString label =
            (transient ? userText("403060", "Transients") : userText("403061", "Waveforms")) +
            QStringLiteral(" #") + text("WaveformNumber") + QStringLiteral(", ") + trigger +
            QStringLiteral(": ") +
            (transient ? userText("403062", "Transient") : userText("403063", "Waveform"));
        grid.rowKeys << QVariantMap{
            {QStringLiteral("DeviceIndex"), device},
            {QStringLiteral("MeterPath"), cells.devicePath(device)},
            {QStringLiteral("Index"), select.value(QStringLiteral("Index"))},
            {QStringLiteral("CaptureNumber"), select.value(QStringLiteral("WaveformNumber"))},
            {QStringLiteral("RecCounter"), select.value(QStringLiteral("RecCounter"))},
            {QStringLiteral("TriggerDateTime"), text("WTDate/Time")},
            {QStringLiteral("TriggerMs"), select.value(QStringLiteral("WTms"))},
            {QStringLiteral("Transient"), transient},
            {QStringLiteral("Label"), label}};
        grid.rowPictures << QString();
    }
    return grid;
}

} // namespace lorvane
