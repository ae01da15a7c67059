// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <cmath>

namespace lorvane::sim {

/// Deterministic random numbers: the same seed gives the same file on every machine, so the
/// generators never use the standard library's distributions (their output is not portable).
class SimRandom
{
public:
    explicit SimRandom(quint64 seed) : m_state(seed ^ 0x9E3779B97F4A7C15ull) {}

    quint64 next()
    {
        // splitmix64
        quint64 z = (m_state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    /// Uniform in [0, 1).
    double uniform() { return static_cast<double>(next() >> 11) * (1.0 / 9007199254740992.0); }
    double uniform(double low, double high) { return low + (high - low) * uniform(); }
    /// Whole number in [low, high].
    int integer(int low, int high)
    {
        return low + static_cast<int>(next() % static_cast<quint64>(high - low + 1));
    }
    bool chance(double probability) { return uniform() < probability; }
    /// Standard normal (Box-Muller).
    double normal()
    {
        const double u1 = std::max(uniform(), 1e-300);
        const double u2 = uniform();
        return std::sqrt(-2.0 * std::log(u1)) * std::cos(6.283185307179586 * u2);
    }

    /// A value in [-1, 1] that depends only on the key: lets any writer evaluate a quantity at
    /// any instant without sharing a generator's state.
    static double noise(quint64 seed, quint64 a, quint64 b)
    {
        SimRandom r(seed * 0x100000001B3ull ^ (a * 0xC2B2AE3D27D4EB4Full) ^
                    (b * 0x165667B19E3779F9ull));
        return r.uniform() * 2.0 - 1.0;
    }

private:
    quint64 m_state;
};

} // namespace lorvane::sim
