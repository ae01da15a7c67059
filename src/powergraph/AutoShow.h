// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace lorvane {

/// What Auto Show needs of a timer: start firing every `intervalMs`, and stop. The window
/// gives its `Timer1`; a test gives a clock it fires by hand.
class AutoShowClock
{
public:
    virtual ~AutoShowClock() = default;
    virtual void start(int intervalMs) = 0;
    virtual void stop() = 0;
};

/// Auto Show of the power graphs: while it runs, each tick of the clock performs one step in
/// the chosen direction and redraws. It ends by itself when a step finds no further records.
class AutoShow
{
public:
    /// The "Auto Show Speed" slider runs from 0 (slowest) to `maxSpeed`.
    static constexpr int maxSpeed = 10;

    /// `step` makes one step forward (true) or back and redraws; false when none was left.
    AutoShow(AutoShowClock& clock, std::function<bool(bool forward)> step);

    /// Milliseconds between ticks at slider `speed` (clamped to 0 to `maxSpeed`):
    /// 1500 - 140 x speed, so the fastest is 100.
    static int interval(int speed);

    void start();
    void stop();
    bool running() const { return m_running; }

    /// A change of the slider; a running show takes the new interval at once.
    void setSpeed(int speed);
    int speed() const { return m_speed; }
    /// "Forward" (true) or "Reverse".
    void setForward(bool forward) { m_forward = forward; }
    bool forward() const { return m_forward; }

    /// One tick of the clock.
    void tick();

private:
    AutoShowClock& m_clock;
    std::function<bool(bool)> m_step;
    int m_speed = 0;
    bool m_forward = true;
    bool m_running = false;
};

} // namespace lorvane
