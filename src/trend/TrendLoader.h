// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GraphSet.h"
#include "TrendRequest.h"

#include <QHash>
#include <QList>

namespace lorvane {

class LoadProgress;
class SqliteDatabase;

/// What a load gave: the sets with samples, meter by meter and in selection order within a
/// meter, and whether the user cancelled it (the sets then hold what was read until then).
struct TrendLoad
{
    QList<GraphSet> sets;
    bool cancelled = false;
    qint64 samples = 0;
};

/// Reads the snapshot values of the chosen points straight from the meter files into the
/// columns of their sets: day by day through `AllHistoricalLogs`, and for each hour the day
/// flags, its time index once and then its value table once, each value placed by its time
/// index. Nothing goes through the scratch database: a trend of a year is tens of millions of
/// values, and a copy would cost more than the read. Values stored as text count by their
/// leading number (the engine's own conversion to a real).
class TrendLoader
{
public:
    /// Throws StorageError when a file cannot be read or an hour's table is missing; a fault
    /// names the meter file. Progress: a fraction over the hours to read, a cancel at each.
    static TrendLoad load(const TrendRequest& request, LoadProgress& progress);

private:
    struct Hour
    {
        qint64 logTablesIndex;
        int hour;
        QString dayText;
    };
    class MeterPass;
};

} // namespace lorvane
