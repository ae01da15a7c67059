// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPointF>
#include <QString>

namespace lorvane {

/// One polyline of an envelope: points of duration in seconds (x) and magnitude in percent
/// (y), drawn in a colour of the sixteen-colour palette (0 black ... 9 light blue ... 15 bright
/// white) with the line type the file gave (stored plus 38, as the chart's annotation types
/// count them).
struct EnvelopePolyline
{
    QString name;
    int color = 0;
    int type = 38;
    QList<QPointF> points;
};

/// Where an event lies against an envelope.
enum class EnvelopePlacement
{
    Inside,
    Above, ///< above a line that bounds from above (a swell the equipment may not ride through)
    Below, ///< below a line that bounds from below (a sag or an outage too deep or too long)
};

/// The curve the events are drawn against: the built-in CBEMA curve or the lines of a boundary
/// line file.
struct PqEnvelope
{
    bool builtIn = true;
    QList<EnvelopePolyline> polylines;

    /// The built-in CBEMA curve: its upper and its lower line in light blue.
    static PqEnvelope cbema();

    /// Where an event of `seconds` and `percent` lies. A polyline whose points lie on average
    /// above 100 % bounds from above, any other from below. Segments are straight on the
    /// graph's logarithmic duration axis, so the limit at a duration is read there; a point on
    /// a line, a vertical step included, is inside; a duration that no segment of a line
    /// reaches is not limited by it.
    EnvelopePlacement placement(double seconds, double percent) const;
};

} // namespace lorvane
