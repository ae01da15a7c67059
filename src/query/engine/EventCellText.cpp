// SPDX-License-Identifier: GPL-3.0-or-later
#include "EventCellText.h"

#include "SortOptions.h"
#include "ValueFormat.h"
#include "platform/Fault.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/selection/SplitLogMeter.h"

#include <QLocale>

namespace lorvane {

EventCellText::EventCellText(SqliteDatabase& db, const QueryNumbers& numbers,
                             const QString& dataFormat)
    : m_dates(QLocale())
{
    m_pattern = ValueFormat::settingsPattern(dataFormat);
    SqlStatement devices =
        db.prepare(QStringLiteral("SELECT DeviceIndex, DeviceTypeID, DBPath, HardwareName FROM %1")
                       .arg(SqlIdentifier::quote(numbers.table(QStringLiteral("LogDevices_")))));
    while (devices.next()) {
        Device device;
        device.path = devices.text(2);
        device.name = devices.text(3);
        device.meter = devices.integer(1) == SplitLogMeter::deviceTypeId
                           ? SplitLogMeter::dmlFolderOfLogFile(device.path)
                           : device.path;
        m_devices.insert(devices.integer(0), device);
    }
}

QString EventCellText::stamp(const QString& stored, double ms, StampedTime::Fraction scale) const
{
    try {
        return StampedTime::fromStoredText(stored, ms)
            .text(m_dates.dateTimeFormat(), m_dates.locale(), scale);
    } catch (const Fault&) {
        return stored;
    }
}

QString EventCellText::value(double number) const
{
    return ValueFormat::text(number, m_pattern, m_dates.locale());
}

QString EventCellText::deviceName(qint64 deviceIndex) const
{
    const auto found = m_devices.constFind(deviceIndex);
    return found == m_devices.cend() ? QString::number(deviceIndex) : found->name;
}

QString EventCellText::devicePath(qint64 deviceIndex) const
{
    return m_devices.value(deviceIndex).path;
}

QList<qint64> EventCellText::sameMeter(qint64 deviceIndex) const
{
    const auto found = m_devices.constFind(deviceIndex);
    if (found == m_devices.cend())
        return {deviceIndex};
    QList<qint64> out;
    for (auto it = m_devices.cbegin(); it != m_devices.cend(); ++it) {
        if (it->meter == found->meter)
            out << it.key();
    }
    std::sort(out.begin(), out.end());
    return out;
}

QString EventCellText::orderBy(LogKind kind, const QString& sortItem, bool descending,
                               const QString& tieBreak)
{
    SortState state;
    state.descending = descending;
    state.item = SortOptions::itemIndex(kind, sortItem);
    if (state.item < 0) {
        throw Fault(Fault::Kind::Other,
                    userText("403000", "Unknown sort item") + QStringLiteral(": ") + sortItem,
                    userText("403001", "Sort Data Options"), {});
    }
    // The sort keys end with the copy order (rowid); the grid's own tie-breaks (end time,
    // meter) go before it so that two meters' rows of one instant stay in meter order.
    const QString order = SortOptions::orderBy(kind, state);
    const qsizetype last = order.lastIndexOf(QStringLiteral(", "));
    if (tieBreak.isEmpty() || last < 0)
        return order;
    return order.left(last) + QStringLiteral(", ") + tieBreak + order.mid(last);
}

} // namespace lorvane
