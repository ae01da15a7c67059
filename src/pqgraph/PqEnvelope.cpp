// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqEnvelope.h"

#include "CbemaCurve.h"

#include <cmath>
#include <optional>

namespace lorvane {

namespace {

/// Durations closer than this (as a share of the duration) are the same: a curve point typed
/// as 0.02 and an event of 20 ms stored as a single must meet on the line.
constexpr double sameDuration = 1e-6;

bool upperLine(const EnvelopePolyline& line)
{
    double sum = 0;
    for (const QPointF& p : line.points)
        sum += p.y();
    return !line.points.isEmpty() && sum / double(line.points.size()) > 100.0;
}

/// The lowest and highest magnitude the polyline takes at `seconds`; nothing where no segment
/// reaches that duration.
std::optional<std::pair<double, double>> valuesAt(const EnvelopePolyline& line, double seconds)
{
    std::optional<std::pair<double, double>> range;
    auto take = [&range](double y) {
        if (!range)
            range = std::pair{y, y};
        range->first = std::min(range->first, y);
        range->second = std::max(range->second, y);
    };
    auto same = [](double a, double b) {
        return std::abs(a - b) <= sameDuration * std::max(std::abs(a), std::abs(b));
    };
    const QList<QPointF>& p = line.points;
    for (qsizetype i = 0; i + 1 < p.size(); ++i) {
        const QPointF a = p[i].x() <= p[i + 1].x() ? p[i] : p[i + 1];
        const QPointF b = p[i].x() <= p[i + 1].x() ? p[i + 1] : p[i];
        if (same(seconds, a.x()))
            take(a.y());
        if (same(seconds, b.x()))
            take(b.y());
        if (seconds > a.x() && seconds < b.x() && a.x() > 0) {
            const double t =
                (std::log10(seconds) - std::log10(a.x())) / (std::log10(b.x()) - std::log10(a.x()));
            take(a.y() + t * (b.y() - a.y()));
        }
    }
    if (p.size() == 1 && same(seconds, p[0].x()))
        take(p[0].y());
    return range;
}

} // namespace

PqEnvelope PqEnvelope::cbema()
{
    PqEnvelope envelope;
    envelope.builtIn = true;
    for (const CbemaCurve::Point& point : CbemaCurve::points()) {
        if (point.startsLine || envelope.polylines.isEmpty())
            envelope.polylines.append({QStringLiteral("CBEMA"), CbemaCurve::color, 38, {}});
        envelope.polylines.last().points.append({point.seconds, point.percent});
    }
    return envelope;
}

EnvelopePlacement PqEnvelope::placement(double seconds, double percent) const
{
    for (const EnvelopePolyline& line : polylines) {
        const auto range = valuesAt(line, seconds);
        if (!range)
            continue;
        if (upperLine(line) && percent > range->second)
            return EnvelopePlacement::Above;
        if (!upperLine(line) && percent < range->first)
            return EnvelopePlacement::Below;
    }
    return EnvelopePlacement::Inside;
}

} // namespace lorvane
