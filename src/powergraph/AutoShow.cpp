// SPDX-License-Identifier: GPL-3.0-or-later
#include "AutoShow.h"

#include <algorithm>

namespace lorvane {

AutoShow::AutoShow(AutoShowClock& clock, std::function<bool(bool forward)> step)
    : m_clock(clock), m_step(std::move(step))
{
}

int AutoShow::interval(int speed)
{
    return 1500 - 140 * std::clamp(speed, 0, maxSpeed);
}

void AutoShow::start()
{
    m_running = true;
    m_clock.start(interval(m_speed));
}

void AutoShow::stop()
{
    if (m_running)
        m_clock.stop();
    m_running = false;
}

void AutoShow::setSpeed(int speed)
{
    m_speed = std::clamp(speed, 0, maxSpeed);
    if (m_running)
        m_clock.start(interval(m_speed));
}

void AutoShow::tick()
{
    if (!m_running)
        return;
    if (!m_step(m_forward))
        stop();
}

} // namespace lorvane
