// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PowerSystemModel.h"
#include "SimSchedule.h"
#include "SimStamp.h"

#include <QList>
#include <QString>

namespace lorvane::sim {

/// One limit set of the meter: the companion row that limit records join by `LinkIndex`.
struct LimitSetting
{
    qint64 linkIndex = 0;
    qint32 dataId = 0;
    qint64 limitId = 0;
    double set = 0.0;
    QString aboveBelow; ///< "Below" or "Above"
    double setPercent = 0.0;
    QString label; ///< what the relay logic calls it ("Limit 7 Ia Above 320 A")
};

/// One time a point was beyond its set.
struct LimitEvent
{
    qint64 linkIndex = 0;
    SimStamp start;
    SimStamp end;
    double value = 0.0; ///< the extreme reached: lowest below a low set, highest above a high one
};

/// The limit sets of a meter and the times its supply crossed them: phase voltages below 90 %
/// and above 110 % of nominal (from the supply's sags, swells and the outage) and phase a
/// current above 80 % of rated (a minute-by-minute scan of the load).
class LimitEvents
{
public:
    LimitEvents(const PowerSystemModel& model, const SimSchedule& schedule);

    const QList<LimitSetting>& settings() const { return m_settings; }
    /// The events in start order.
    const QList<LimitEvent>& events() const { return m_events; }
    /// The setting of a link index; the first one when unknown.
    const LimitSetting& setting(qint64 linkIndex) const;

    static constexpr qint64 currentLink = 7;

private:
    QList<LimitSetting> m_settings;
    QList<LimitEvent> m_events;
};

} // namespace lorvane::sim
