// SPDX-License-Identifier: GPL-3.0-or-later
#include "LimitGrid.h"

#include "LimitLoader.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/engine/EventCellText.h"
#include "query/engine/GridCellText.h"

namespace lorvane {

QStringList LimitGrid::columns()
{
    return {userText("403010", "Start Date/Time"),
            userText("403011", "End Date/Time"),
            userText("403012", "Start Date/Time mode"),
            userText("403013", "End Date/Time mode"),
            userText("403014", "Duration (S)"),
            userText("403015", "Device"),
            userText("403016", "Set Index"),
            userText("403017", "Limit ID"),
            userText("403018", "State"),
            userText("403019", "Data"),
            userText("403020", "Value"),
            userText("403021", "Set Point"),
            userText("403022", "DescriptionCode"),
            userText("403023", "Data ID")};
}

GridTable LimitGrid::fill(SqliteDatabase& db, const QueryNumbers& numbers, bool descending,
                          const QString& sortItem, const QString& dataFormat)
{
    const EventCellText cells(db, numbers, dataFormat);
    const QString dir = descending ? QStringLiteral(" DESC") : QStringLiteral(" ASC");
    const QString order = EventCellText::orderBy(
        LogKind::Limits, sortItem, descending,
        QStringLiteral("[EndDate/Time]%1, [Endms]%1, [DeviceIndex] ASC").arg(dir));
    SqlStatement select = db.prepare(
        QStringLiteral("SELECT * FROM (SELECT LL.rowid AS rowid, LL.[StartDate/Time], "
                       "LL.[Startms], LL.[EndDate/Time], LL.[Endms], LL.[SDTmode], LL.[EDTmode], "
                       "LL.[Duration], LL.[DeviceIndex], LL.[DataIndex], LL.[LimitID], "
                       "LL.[LState], TG.[TextName], LL.[LValue], LL.[LSAB], LL.[LSet], "
                       "LL.[LSet%], LL.[DescriptionCode], LL.[DataID] FROM %1 AS LL JOIN %2 AS TG "
                       "ON TG.[DataID] = LL.[DataID] AND TG.[LogSource] = ?) ORDER BY %3")
            .arg(SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("LimitsLog_"))),
                 SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("TagNames_"))), order));
    select.bind(1, qint64{LimitLoader::limitLogSource});

    GridTable grid;
    grid.caption = userText("403002", "Show Limits");
    grid.columns = columns();
    // The set point reads as the meter states it ("Below 108 or 90%"), not in the grid's
    // number format.
    const auto number = [&select](const char* column) {
        return GridCellText::value(select.value(QString::fromLatin1(column)));
    };
    while (select.next()) {
        const QString start = select.text(select.columnIndex(QStringLiteral("StartDate/Time")));
        const double startMs = select.value(QStringLiteral("Startms")).toDouble();
        const qint64 device = select.value(QStringLiteral("DeviceIndex")).toLongLong();
        const QVariant value = select.value(QStringLiteral("LValue"));
        const QString setPoint = select.value(QStringLiteral("LSAB")).toString() +
                                 QLatin1Char(' ') + number("LSet") + QStringLiteral(" or ") +
                                 number("LSet%") + QLatin1Char('%');
        grid.rows << QStringList{
            cells.stamp(start, startMs, StampedTime::Fraction::Thousandths),
            cells.stamp(select.value(QStringLiteral("EndDate/Time")).toString(),
                        select.value(QStringLiteral("Endms")).toDouble(),
                        StampedTime::Fraction::Thousandths),
            select.value(QStringLiteral("SDTmode")).toString(),
            select.value(QStringLiteral("EDTmode")).toString(),
            GridCellText::value(select.value(QStringLiteral("Duration"))),
            cells.deviceName(device),
            select.value(QStringLiteral("DataIndex")).toString(),
            userText("403003", "Limit ") + select.value(QStringLiteral("LimitID")).toString(),
            userTextByName(select.value(QStringLiteral("LState")).toString()),
            select.value(QStringLiteral("TextName")).toString(),
            value.isNull() ? QString() : cells.value(value.toDouble()),
            setPoint,
            select.value(QStringLiteral("DescriptionCode")).toString(),
            select.value(QStringLiteral("DataID")).toString()};
        grid.rowKeys << QVariantMap{
            {QStringLiteral("DeviceIndex"), device},
            {QStringLiteral("DataID"), select.value(QStringLiteral("DataID"))},
            {QStringLiteral("StartDateTime"), start},
            {QStringLiteral("Startms"), startMs}};
        grid.rowPictures << QStringLiteral("Limits");
    }
    return grid;
}

} // namespace lorvane
