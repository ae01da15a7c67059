// SPDX-License-Identifier: GPL-3.0-or-later
#include "GridReader.h"

#include "EventCellText.h"
#include "GridCellText.h"
#include "platform/SqliteDatabase.h"

namespace lorvane {

GridTable GridReader::read(SqliteDatabase& scratch, const QueryNumbers& numbers,
                           const QString& caption, const QList<GridColumn>& columns,
                           const QList<QPair<QString, QString>>& keys, const QString& from,
                           const QString& orderBy, const QString& dataFormat)
{
    GridTable grid;
    grid.caption = caption;
    // Each cell reads its expression (and a stamp its fraction) at a known position.
    QStringList select;
    QList<int> position;
    for (const GridColumn& column : columns) {
        grid.columns << column.heading;
        position << select.size();
        select << column.expression;
        if (column.form == GridColumn::Form::Stamp)
            select << column.fraction;
    }
    const int firstKey = select.size();
    for (const auto& key : keys)
        select << key.second;

    // Meter names and values as the event grids show them.
    const EventCellText text(scratch, numbers, dataFormat);
    SqlStatement rows = scratch.prepare(QStringLiteral("SELECT %1 FROM %2 ORDER BY %3")
                                            .arg(select.join(QStringLiteral(", ")), from, orderBy));
    while (rows.next()) {
        QStringList cells;
        for (int c = 0; c < columns.size(); ++c) {
            const int at = position.at(c);
            switch (columns.at(c).form) {
            case GridColumn::Form::Stamp:
                cells << GridCellText::stamp(rows.value(at), rows.value(at + 1));
                break;
            case GridColumn::Form::Device:
                cells << text.deviceName(rows.integer(at));
                break;
            case GridColumn::Form::Value:
                cells << GridCellText::value(rows.value(at));
                break;
            case GridColumn::Form::Number:
                cells << (rows.isNull(at) ? QString() : text.value(rows.real(at)));
                break;
            }
        }
        QVariantMap rowKeys;
        for (int k = 0; k < keys.size(); ++k)
            rowKeys.insert(keys.at(k).first, rows.value(firstKey + k));
        grid.rows << cells;
        grid.rowKeys << rowKeys;
        grid.rowPictures << QString();
    }
    return grid;
}

} // namespace lorvane
