// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"

#include <QList>
#include <QString>
#include <QTextStream>

namespace lorvane::cli {

/// Prints grids exactly as the window shows them. CSV: per grid a line with the caption, the
/// heading, the heading rows and the data rows, fields quoted where they must be. JSON: an
/// array with one object per grid: caption, columns, rows.
class GridPrinter
{
public:
    /// "csv" or "json"; false for any other word.
    static bool knownFormat(const QString& format);
    static void print(QTextStream& out, const QList<GridTable>& grids, const QString& format);
    static QString csvLine(const QStringList& cells);
};

} // namespace lorvane::cli
