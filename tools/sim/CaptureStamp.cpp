// SPDX-License-Identifier: GPL-3.0-or-later
#include "CaptureStamp.h"

#include "SimClock.h"

#include <cmath>

namespace lorvane::sim {

CaptureStamp CaptureStamp::plus(double deltaMs) const
{
    // Work in tenths of a millisecond so that the carry into the seconds is exact.
    const qint64 tenths = second * 10000 + std::llround(ms * 10.0) + std::llround(deltaMs * 10.0);
    const qint64 whole = tenths >= 0 ? tenths / 10000 : (tenths - 9999) / 10000;
    return {whole, static_cast<double>(tenths - whole * 10000) / 10.0};
}

double CaptureStamp::msSince(const CaptureStamp& other) const
{
    return static_cast<double>(second - other.second) * 1000.0 + (ms - other.ms);
}

QString CaptureStamp::text() const
{
    return SimClock::text(second);
}

} // namespace lorvane::sim
