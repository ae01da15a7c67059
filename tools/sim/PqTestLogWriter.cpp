// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqTestLogWriter.h"

#include "PqTestBins.h"
#include "RowInsert.h"
#include "SimClock.h"
#include "SimSchedule.h"
#include "platform/SqlIdentifier.h"

#include <stdexcept>

namespace lorvane::sim {

namespace {

constexpr qint64 secondsPerWeek = 7 * SimClock::secondsPerDay;

/// Column names of the criteria, in the order of PqTestBins::Criterion.
const char* const criterionColumns[PqTestBins::criterionCount] = {
    "Freq", "LSV", "FVF", "Flicker", "SVU", "Harmonic", "THD"};

} // namespace

void PqTestLogWriter::write(const SimMeter& meter)
{
    if (meter.db == nullptr || meter.model == nullptr)
        throw std::invalid_argument("EN 50160 test rows: the meter has no open database or "
                                    "no supply model");
    if (meter.endSecond <= meter.startSecond)
        return;

    const QString table = QStringLiteral("AllPQTestLogs");
    const bool withNominalVoltage =
        meter.schema.table(table).columnNames().contains(QStringLiteral("NominalVoltage"));
    const SimSchedule schedule(meter.startSecond, meter.endSecond);
    const auto& config = meter.model->config();
    qint64 id = meter.db
                    ->scalar(QStringLiteral("SELECT COALESCE(MAX([ID_PQTest]), 0) FROM %1")
                                 .arg(SqlIdentifier::quote(table)))
                    .toLongLong();

    const qint64 span = meter.endSecond - meter.startSecond;
    const qint64 length = span < secondsPerWeek ? span : secondsPerWeek;
    for (qint64 start = meter.startSecond; start + length <= meter.endSecond; start += length) {
        const qint64 end = start + length;
        const PqTestBins bins = PqTestBins::measure(*meter.model, schedule, start, end);
        RowInsert row(table);
        row.set(QStringLiteral("ID_PQTest"), ++id)
            .set(QStringLiteral("StartTime"), SimClock::text(start))
            .set(QStringLiteral("EndTime"), SimClock::text(end))
            .set(QStringLiteral("Freq"), config.frequency);
        for (int i = 0; i < PqTestBins::criterionCount; ++i) {
            const auto criterion = static_cast<PqTestBins::Criterion>(i);
            const QString name = QString::fromLatin1(criterionColumns[i]);
            row.set(QStringLiteral("S_") + name, bins.status(criterion, meter.pqTest))
                .set(QStringLiteral("P_") + name, PqTestBins::parameter(criterion, meter.pqTest));
        }
        for (int n = 1; n <= PqTestBins::binCount; ++n)
            row.set(QStringLiteral("bin_%1").arg(n), bins.bin(n));
        if (withNominalVoltage)
            row.set(QStringLiteral("NominalVoltage"), config.nominalVoltage);
        row.run(meter);
    }
}

} // namespace lorvane::sim
