// SPDX-License-Identifier: GPL-3.0-or-later
#include "LimitEvents.h"

#include <algorithm>
#include <optional>

namespace lorvane::sim {

namespace {

const char* const phaseNames[] = {"Van", "Vbn", "Vcn"};

} // namespace

LimitEvents::LimitEvents(const PowerSystemModel& model, const SimSchedule& schedule)
{
    const double nominal = model.config().nominalVoltage;
    const double rated = model.config().ratedCurrent;
    for (int phase = 0; phase < 3; ++phase) {
        const double set = nominal * 0.9;
        m_settings << LimitSetting{phase + 1,
                                   20617 + 4 * phase,
                                   1,
                                   set,
                                   QStringLiteral("Below"),
                                   90.0,
                                   QStringLiteral("Limit %1 %2 Below %3 V")
                                       .arg(phase + 1)
                                       .arg(QString::fromLatin1(phaseNames[phase]))
                                       .arg(set, 0, 'f', 1)};
    }
    for (int phase = 0; phase < 3; ++phase) {
        const double set = nominal * 1.1;
        m_settings << LimitSetting{phase + 4,
                                   20617 + 4 * phase,
                                   2,
                                   set,
                                   QStringLiteral("Above"),
                                   110.0,
                                   QStringLiteral("Limit %1 %2 Above %3 V")
                                       .arg(phase + 4)
                                       .arg(QString::fromLatin1(phaseNames[phase]))
                                       .arg(set, 0, 'f', 1)};
    }
    const double currentSet = rated * 0.8;
    m_settings << LimitSetting{
        currentLink,
        21017,
        3,
        currentSet,
        QStringLiteral("Above"),
        80.0,
        QStringLiteral("Limit %1 Ia Above %2 A").arg(currentLink).arg(currentSet, 0, 'f', 0)};

    for (const Disturbance& d : model.disturbances()) {
        if (d.kind == Disturbance::Kind::Transient || schedule.poweredDown(d.startSecond))
            continue;
        const bool sag = d.kind == Disturbance::Kind::Sag;
        LimitEvent event;
        event.linkIndex = d.channel + (sag ? 1 : 4);
        event.start = SimStamp{d.startSecond, 0}.plus(d.startMs);
        event.end = event.start.plus(d.durationMs);
        event.value = nominal * d.residualPercent / 100.0;
        m_events << event;
    }
    if (schedule.hasOutage()) {
        for (int phase = 0; phase < 3; ++phase)
            m_events << LimitEvent{
                phase + 1, {schedule.outageStart(), 0}, {schedule.outageEnd(), 0}, 0.0};
    }

    // The load scan: one look a minute, as the meter's limit check of slow quantities.
    std::optional<LimitEvent> open;
    for (qint64 t = schedule.startSecond(); t < schedule.endSecond(); t += 60) {
        const double amps = schedule.poweredDown(t) ? 0.0 : model.current(0, t);
        if (amps > currentSet) {
            if (!open)
                open = LimitEvent{currentLink, {t, 0}, {t, 0}, amps};
            open->value = std::max(open->value, amps);
        } else if (open) {
            open->end = {t, 0};
            m_events << *open;
            open.reset();
        }
    }
    if (open) {
        open->end = {schedule.endSecond() - 1, 0};
        m_events << *open;
    }
    std::stable_sort(m_events.begin(), m_events.end(),
                     [](const LimitEvent& a, const LimitEvent& b) { return a.start < b.start; });
}

const LimitSetting& LimitEvents::setting(qint64 linkIndex) const
{
    for (const LimitSetting& s : m_settings) {
        if (s.linkIndex == linkIndex)
            return s;
    }
    return m_settings.front();
}

} // namespace lorvane::sim
