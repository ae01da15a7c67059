// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace lorvane::sim {

/// The text of a sample column of a waveform row: decimal numbers with a `.` point,
/// separated by a carriage return, no trailing separator.
class SampleText
{
public:
    /// Text of `values` with `decimals` digits after the point (0 gives "0"/"1" for inputs).
    static QString join(const QList<double>& values, int decimals);
    /// The text of a channel that the capture does not carry.
    static QString notCaptured() { return QStringLiteral("N/A"); }
};

} // namespace lorvane::sim
