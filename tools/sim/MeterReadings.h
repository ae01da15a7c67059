// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PowerSystemModel.h"

#include <QtGlobal>

namespace lorvane::sim {

/// What the meter reads for a data id at an instant, drawn from the supply model. Energy
/// registers are integrated minute by minute as the readings move forward in time, the way a
/// meter accumulates them, so readings must be asked for in non-decreasing time order.
class MeterReadings
{
public:
    /// `seed` sets the registers' starting values.
    MeterReadings(const PowerSystemModel& model, quint64 seed);

    /// Value of a data id of the plan at `second` (volts, amps, kW, kvar, kVA, kWh, Hz,
    /// percent; power factors in the band code form). Unknown ids read 0. Asking for an
    /// earlier second than before leaves the energy registers where they are.
    double value(qint32 id, qint64 second);

    /// Power factor as logged: the lagging factor itself (0 to 1), or 2 minus the factor
    /// while the supply leads (1 to 2).
    static double bandCode(double powerFactor, bool leading);

private:
    void advanceTo(qint64 second);
    double totalPower(qint64 second) const;    ///< kW
    double totalReactive(qint64 second) const; ///< kvar, negative while leading
    double totalApparent(qint64 second) const; ///< kVA
    /// Mean over the 15 whole minutes before `second` of a quantity (kW 0, kvar 1, kVA 2,
    /// phase currents 3 to 5).
    double demand(int quantity, qint64 second) const;

    const PowerSystemModel& m_model;
    qint64 m_registerSecond = 0;
    double m_kWhDelivered = 0.0;
    double m_kWhReceived = 0.0;
    double m_kvarhDelivered = 0.0;
    double m_kVAh = 0.0;
};

} // namespace lorvane::sim
