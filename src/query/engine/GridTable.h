// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace lorvane {

/// One grid of a view as the user reads it: every cell already formatted. The window shows it
/// through a virtual model; the command line prints it as CSV or JSON.
struct GridTable
{
    /// What the grid holds ("Show Limits", "Show Input Settings" ...).
    QString caption;
    /// The fixed heading row.
    QStringList columns;
    /// Rows shown under the heading before the data (the snapshot grid's "Device
    /// Index/Type/Data ID" row and its data names row).
    QList<QStringList> headingRows;
    /// The data rows, one text per column.
    QList<QStringList> rows;
    /// Per data row, the values a double click or a graph hand-over needs (`DeviceIndex`,
    /// `Index`, `RecCounter` ...), never shown.
    QList<QVariantMap> rowKeys;
    /// Per data row, the name of a picture shown in the row ("Wave", "Limits"), or empty.
    QStringList rowPictures;
    /// The column the row pictures stand in.
    int pictureColumn = 0;
    /// Per data row of a PQ grid, the condition that colours the row ("SURGE", "SAG",
    /// "START", "END"), or empty; other grids leave the list empty.
    QStringList rowConditions;
};

} // namespace lorvane
