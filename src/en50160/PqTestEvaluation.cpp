// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqTestEvaluation.h"

#include "platform/LoadProgress.h"
#include "platform/SqliteDatabase.h"
#include "store/MeterDatabase.h"

namespace lorvane {

namespace {

QString serialOf(const QString& path)
{
    MeterDatabase meter(path, QStringLiteral("RunPQReport"));
    if (!meter.db().tableExists(QStringLiteral("DeviceInformation")))
        return {};
    return meter.db()
        .scalar(QStringLiteral("Select HardwareID from DeviceInformation LIMIT 1"))
        .toString();
}

} // namespace

PqTestEvaluation PqTestEvaluation::run(const PqTestRow& row, SqliteDatabase* dictionary,
                                       LoadProgress& progress)
{
    PqTestEvaluation result;
    result.row = row;
    result.found = PqTestRebuild::rebuild(row, result.statistics);
    for (int page = 0; page < en50160PageCount; ++page)
        result.verdicts[size_t(page)] = PageEvaluation::evaluate(page, result.statistics);
    if (result.found)
        result.series = DailySeriesReader::read(row.snapshotLogFiles(), row.start, row.end,
                                                dictionary, progress);
    result.events = VoltageEvents::read(row.pqLogFile(), row.start, row.end, progress);
    result.serial = serialOf(row.sourceDb);
    return result;
}

} // namespace lorvane
