// SPDX-License-Identifier: GPL-3.0-or-later
#include "GridPrinter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace lorvane::cli {

bool GridPrinter::knownFormat(const QString& format)
{
    return format == QLatin1String("csv") || format == QLatin1String("json");
}

QString GridPrinter::csvLine(const QStringList& cells)
{
    QStringList fields;
    for (const QString& cell : cells) {
        if (cell.contains(u',') || cell.contains(u'"') || cell.contains(u'\n'))
            fields << u'"' + QString(cell).replace(QStringLiteral("\""), QStringLiteral("\"\"")) +
                          u'"';
        else
            fields << cell;
    }
    return fields.join(u',') + u'\n';
}

void GridPrinter::print(QTextStream& out, const QList<GridTable>& grids, const QString& format)
{
    if (format == QLatin1String("json")) {
        QJsonArray list;
        for (const GridTable& grid : grids) {
            QJsonArray rows;
            for (const QStringList& line : grid.headingRows + grid.rows)
                rows.append(QJsonArray::fromStringList(line));
            list.append(
                QJsonObject{{QStringLiteral("caption"), grid.caption},
                            {QStringLiteral("columns"), QJsonArray::fromStringList(grid.columns)},
                            {QStringLiteral("rows"), rows}});
        }
        out << QJsonDocument(list).toJson(QJsonDocument::Indented);
        return;
    }
    for (const GridTable& grid : grids) {
        out << csvLine({grid.caption}) << csvLine(grid.columns);
        for (const QStringList& line : grid.headingRows + grid.rows)
            out << csvLine(line);
    }
}

} // namespace lorvane::cli
