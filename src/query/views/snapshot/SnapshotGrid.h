// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/QueryCatalog.h"
#include "query/engine/ValueFormat.h"
#include "store/DateTimeText.h"
#include "store/DeviceDataLookUp.h"
#include "store/DeviceScaledFormats.h"
#include "store/ScaledEnergyFormat.h"

#include <QHash>
#include <QString>

namespace lorvane {

struct QueryContext;

/// The wide table of a snapshot slice: one line per instant, one column per meter and data
/// point (`Dev_Data`, `{DeviceIndex}_{DataID}`, in ascending text order), the first value
/// read winning where one key holds two at the same instant. Built from one ordered read of
/// `HistLog_{Q}_{S}`: no meter file is touched.
class SnapshotGrid
{
public:
    /// Reads the dictionary's look-up and scaled format tables when the context has a
    /// dictionary; without one, values print in the settings' pattern and names as numbers.
    explicit SnapshotGrid(const QueryContext& context);

    /// The grid of slice `numbers`: the columns "Date/Time", "DTmode", "Record Type",
    /// "Profile Index" and one per `Dev_Data`; the heading rows "Device Index/Type/Data ID"
    /// and the data names; rows in the view's direction, or by the context's sort column
    /// (a `Dev_Data` key or a fixed column's name), equal keys in time order; grouped by type,
    /// the record type ascending first. A scaled energy value shows its format's decimals
    /// and the unit prefix its `Units` name.
    /// `caption` names the grid. Throws StorageError when the slice's tables cannot be read.
    GridTable fill(const QueryNumbers& numbers, const QString& caption) const;

private:
    /// A scaled format of the slice, its pattern taken apart once.
    struct ScaledCell
    {
        ValueFormat::Pattern pattern;
        QString prefix;
    };

    QString cellText(double value, qint64 deviceIndex, qint32 dataId, qint64 profileIndex,
                     const QHash<qint64, ScaledCell>& scaledFormats) const;
    QString label(qint32 dataId) const;

    /// How the cells of one data point are formatted, from the dictionary.
    struct PointRule
    {
        bool powerFactor = false;
        qint32 formatId = -1; ///< the scaled format's id, -1 for none
    };

    const QueryContext& m_context;
    DateTimeText m_dateTime;
    ValueFormat::Pattern m_plain;
    DeviceDataLookUp m_lookUp;
    DeviceScaledFormats m_scaledFormats;
    mutable QHash<qint32, QString> m_labels;
    mutable QHash<qint32, PointRule> m_rules;
};

} // namespace lorvane
