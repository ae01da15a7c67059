// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

namespace lorvane::sim {

/// An instant of a capture or PQ record: whole seconds of the meter clock and the
/// milliseconds within the second, kept to a tenth as those logs store them.
struct CaptureStamp
{
    qint64 second = 0;
    double ms = 0.0; ///< 0.0 to 999.9

    /// The stamp moved by `deltaMs` milliseconds (either sign), rounded to a tenth.
    CaptureStamp plus(double deltaMs) const;
    /// Milliseconds from `other` to this stamp.
    double msSince(const CaptureStamp& other) const;
    /// `YYYY-MM-DD HH:MM:SS` of the whole second.
    QString text() const;
};

} // namespace lorvane::sim
