// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace lorvane {

/// A colour of the power graphs as the settings store keeps it: three components 0 to 255.
struct PGraphColor
{
    int red = 0;
    int green = 0;
    int blue = 0;
    bool operator==(const PGraphColor&) const = default;
};

/// One record of an item: its meter time (milliseconds of wall-clock time from 1970-01-01
/// 00:00 with no zone, as the graph kit counts it) and its value.
struct PGraphRecord
{
    qint64 time = 0;
    double value = 0;
};

/// One data item drawn by the power graphs: which meter and data point it is, its name and
/// colour, and its records in time order.
struct PGraphItem
{
    qint64 deviceIndex = 0;
    qint32 dataId = 0;
    QString name;
    PGraphColor color;
    QList<PGraphRecord> records;

    /// The largest and smallest value of the records; 0 for an item without records.
    double maximum() const;
    double minimum() const;
};

} // namespace lorvane
