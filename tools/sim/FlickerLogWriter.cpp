// SPDX-License-Identifier: GPL-3.0-or-later
#include "FlickerLogWriter.h"

#include "DayLogBook.h"
#include "RowInsert.h"
#include "SimClock.h"

#include <functional>

namespace lorvane::sim {

namespace {

constexpr qint64 blockSeconds = 6 * 3600;

struct Extreme
{
    double value = 0.0;
    qint64 stamp = -1;
};

/// Maximum and minimum of one term of one phase over a block, from intervals of `step`.
void scan(const SimSchedule& schedule, qint64 from, qint64 step, Extreme& max, Extreme& min,
          const std::function<double(qint64)>& value)
{
    for (qint64 t = from; t < from + blockSeconds; t += step) {
        if (schedule.poweredDown(t) || schedule.poweredDown(t + step - 1))
            continue;
        const double v = value(t);
        const qint64 end = t + step;
        if (max.stamp < 0 || v > max.value)
            max = {v, end};
        if (min.stamp < 0 || v < min.value)
            min = {v, end};
    }
}

} // namespace

void FlickerLogWriter::write(const SimMeter& meter, const SimSchedule& schedule)
{
    const PowerSystemModel& model = *meter.model;
    const TableLayout layout = meter.schema.flickerMaxMin();
    DayLogBook book(meter, LogKind::Flicker);
    const char* const phases[] = {"Va", "Vb", "Vc"};
    for (qint64 block = schedule.startSecond(); block < schedule.endSecond();
         block += blockSeconds) {
        SqlStatement& insert = book.record(block, block + blockSeconds);
        RowInsert row(layout.name());
        row.set(QStringLiteral("Index"), book.recordInDay())
            .set(QStringLiteral("FS_DT"), SimClock::text(block))
            .set(QStringLiteral("FS_ms"), qint64(0))
            .set(QStringLiteral("FS_DTmode"), qint64(0))
            .set(QStringLiteral("FE_DT"), SimClock::text(block + blockSeconds))
            .set(QStringLiteral("FE_ms"), qint64(0))
            .set(QStringLiteral("FE_DTmode"), qint64(0))
            .set(QStringLiteral("F_Status"), qint64(0));
        for (int phase = 0; phase < 3; ++phase) {
            for (const bool longTerm : {false, true}) {
                Extreme max, min;
                if (longTerm)
                    scan(schedule, block, 7200, max, min,
                         [&](qint64 t) { return model.plt(phase, t); });
                else
                    scan(schedule, block, 600, max, min,
                         [&](qint64 t) { return model.pst(phase, t); });
                const QString term = QString::fromLatin1(longTerm ? "LT" : "ST");
                const QString p = QString::fromLatin1(phases[phase]);
                for (const auto& [name, e] : {std::pair{QStringLiteral("Max"), max},
                                              std::pair{QStringLiteral("Min"), min}}) {
                    const QString stem = name + QLatin1Char('_') + term;
                    const bool found = e.stamp >= 0;
                    row.set(stem + QStringLiteral("_DT_") + p,
                            found ? QVariant(SimClock::text(e.stamp)) : QVariant())
                        .set(stem + QStringLiteral("_ms_") + p, qint64(0))
                        .set(stem + QStringLiteral("_DTmode_") + p, qint64(0))
                        .set(stem + QLatin1Char('_') + p, found ? QVariant(e.value) : QVariant())
                        .set(stem + QStringLiteral("_DT_") + p + QStringLiteral("_Status"),
                             qint64(found ? 0 : 1));
                }
            }
        }
        row.runPrepared(insert, layout);
    }
    book.finish();
}

} // namespace lorvane::sim
