// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DailySeries.h"
#include "En50160Page.h"
#include "PageEvaluation.h"
#include "PqTestRow.h"
#include "PqTestStatistics.h"
#include "VoltageEvents.h"

#include <array>

namespace lorvane {

class LoadProgress;
class SqliteDatabase;

/// Everything a report of one test row is made from: the rebuilt statistics block, the
/// verdict of each page, the voltage events and the daily series of the period, and the
/// meter's serial. The report, the window and `lorvane-cli en50160 evaluate` all take their
/// numbers from here.
struct PqTestEvaluation
{
    PqTestRow row;
    PqTestStatistics statistics;
    /// False when the meter file no longer holds the test: the counts are zero and the
    /// series are not read.
    bool found = false;
    std::array<PageEvaluation::Verdict, en50160PageCount> verdicts{};
    QList<VoltageEvent> events;
    QList<DailySeries> series;
    QString serial;

    /// Builds the evaluation of `row`; `dictionary` (may be null) names the series. Throws
    /// Fault as PqTestRebuild, VoltageEvents and DailySeriesReader do.
    static PqTestEvaluation run(const PqTestRow& row, SqliteDatabase* dictionary,
                                LoadProgress& progress);
};

} // namespace lorvane
