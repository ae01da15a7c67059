// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PGraphItem.h"

#include <QList>
#include <QString>

namespace lorvane {

class LoadProgress;
class SqliteDatabase;
class TempQueryDatabase;

/// A data point of a snapshot or demand query that a power graph can draw: one line of the
/// set-up's list ("Data ID", "Data Name").
struct PGraphChoice
{
    qint64 deviceIndex = 0;
    qint32 dataId = 0;
    QString name;
    bool operator==(const PGraphChoice&) const = default;
};

/// The records of a power graph, from the tables that a snapshot or demand query has read
/// into the scratch database (every slice read so far, not only the page shown): no meter
/// file is opened.
class PGraphRecords
{
public:
    /// The data points of query `query`, by meter and data id, named through the dictionary
    /// (may be null: the id as a number), with " - " and the meter's name when the query reads
    /// more than one meter. Throws StorageError.
    static QList<PGraphChoice> choices(TempQueryDatabase& scratch, qint64 query,
                                       SqliteDatabase* dictionary);
    /// The records of each chosen point in time order; of two records at one instant the one
    /// read first counts, as in the grid. `progress` (may be null) sees a step per slice and
    /// may cancel: the records read so far come back. Throws StorageError.
    static QList<PGraphItem> load(TempQueryDatabase& scratch, qint64 query,
                                  const QList<PGraphChoice>& chosen, LoadProgress* progress);
};

} // namespace lorvane
