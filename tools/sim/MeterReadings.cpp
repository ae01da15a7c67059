// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterReadings.h"

#include "SimSchedule.h"

#include <cmath>

namespace lorvane::sim {

MeterReadings::MeterReadings(const PowerSystemModel& model, quint64 seed)
    : m_model(model), m_registerSecond(model.config().startSecond)
{
    // Registers of a meter in service for a while, different per seed.
    m_kWhDelivered = 250000.0 + static_cast<double>(seed % 997) * 131.0;
    m_kWhReceived = 1200.0 + static_cast<double>(seed % 89) * 3.0;
    m_kvarhDelivered = m_kWhDelivered * 0.42;
    m_kVAh = m_kWhDelivered * 1.09;
}

double MeterReadings::bandCode(double powerFactor, bool leading)
{
    return leading ? 2.0 - powerFactor : powerFactor;
}

double MeterReadings::totalPower(qint64 second) const
{
    double sum = 0.0;
    for (int phase = 0; phase < 3; ++phase)
        sum += m_model.realPower(phase, second);
    return sum / 1000.0;
}

double MeterReadings::totalReactive(qint64 second) const
{
    double sum = 0.0;
    for (int phase = 0; phase < 3; ++phase)
        sum += m_model.reactivePower(phase, second);
    return (SimSchedule::capacitorsOn(second) ? -0.35 : 1.0) * sum / 1000.0;
}

double MeterReadings::totalApparent(qint64 second) const
{
    const double p = totalPower(second);
    const double q = totalReactive(second);
    return std::sqrt(p * p + q * q);
}

void MeterReadings::advanceTo(qint64 second)
{
    // One step per whole minute: the power at the start of the minute holds for the minute.
    while (m_registerSecond + 60 <= second) {
        const double kW = totalPower(m_registerSecond);
        const double kvar = totalReactive(m_registerSecond);
        m_kWhDelivered += kW / 60.0;
        if (kvar > 0.0)
            m_kvarhDelivered += kvar / 60.0;
        m_kVAh += std::sqrt(kW * kW + kvar * kvar) / 60.0;
        m_registerSecond += 60;
    }
}

double MeterReadings::demand(int quantity, qint64 second) const
{
    const qint64 end = second - second % 60;
    double sum = 0.0;
    for (int minute = 1; minute <= 15; ++minute) {
        const qint64 at = end - 60 * minute;
        switch (quantity) {
        case 0:
            sum += totalPower(at);
            break;
        case 1:
            sum += totalReactive(at);
            break;
        case 2:
            sum += totalApparent(at);
            break;
        default:
            sum += m_model.current(quantity - 3, at);
            break;
        }
    }
    return sum / 15.0;
}

double MeterReadings::value(qint32 id, qint64 second)
{
    const PowerSystemModel& m = m_model;
    const bool leading = SimSchedule::capacitorsOn(second);
    switch (id) {
    case 20617:
    case 20621:
    case 20625:
        return m.voltage((id - 20617) / 4, second);
    case 20629:
    case 20633:
    case 20637:
        return m.lineVoltage((id - 20629) / 4, second);
    case 20641: // auxiliary input: a control transformer on phase a
        return m.voltage(0, second) * 0.98;
    case 20645:
        return (m.voltage(0, second) + m.voltage(1, second) + m.voltage(2, second)) / 3.0;
    case 20649:
        return (m.lineVoltage(0, second) + m.lineVoltage(1, second) + m.lineVoltage(2, second)) /
               3.0;
    case 20653:
        return m.unbalancePercent(second);
    case 21017:
    case 21021:
    case 21025:
    case 21029:
        return m.current((id - 21017) / 4, second);
    case 21033:
        return (m.current(0, second) + m.current(1, second) + m.current(2, second)) / 3.0;
    case 21203:
        return totalPower(second);
    case 21204:
        return totalReactive(second);
    case 21205:
        return totalApparent(second);
    case 21206:
    case 21207:
    case 21208:
        return m.realPower(id - 21206, second) / 1000.0;
    case 21401:
    case 21402:
    case 21403: {
        // The capacitor bank over-compensates each phase to the same leading factor.
        const double pf = m.powerFactor(id - 21401, second);
        return bandCode(leading ? std::min(0.99, pf + 0.08) : pf, leading);
    }
    case 21404:
        return bandCode(totalPower(second) / totalApparent(second), leading);
    case 21601:
        return m.frequency(second);
    case 22001:
    case 22002:
    case 22003:
        return m.voltageThdPercent(id - 22001, second);
    case 22004:
    case 22005:
    case 22006:
        return m.currentThdPercent(id - 22004, second);
    case 20825:
    case 26003:
    case 202006:
        advanceTo(second);
        return m_kWhDelivered;
    case 26004:
        advanceTo(second);
        return m_kWhReceived;
    case 20826:
    case 26005:
    case 202010:
        advanceTo(second);
        return m_kvarhDelivered;
    case 26006:
        advanceTo(second);
        return m_kVAh;
    case 26201:
    case 26202:
    case 26203:
    case 26204:
    case 26205:
    case 26206:
        return demand(id - 26201, second);
    case 27401:
    case 27402:
    case 27403:
        return m.pst(id - 27401, second);
    case 27404:
    case 27405:
    case 27406:
        return m.plt(id - 27404, second);
    default:
        return 0.0;
    }
}

} // namespace lorvane::sim
