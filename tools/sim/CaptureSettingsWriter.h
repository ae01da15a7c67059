// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane::sim {

struct SimMeter;

/// The file-wide companions of the capture and PQ logs: one row per setting `Index` in
/// `PQWaveLogDataItem` (hook-up, rate, record format, enables, per-channel limits),
/// `FullScales` and `HSInputLabels`.
class CaptureSettingsWriter
{
public:
    /// Inserts the rows into the existing file-wide tables. Engine errors propagate as
    /// StorageError; the caller owns the transaction.
    static void write(const SimMeter& meter);

    /// `PTCT_Ratio1` (PT), `PTCT_Ratio3` (CT) and `PTCT_Ratio4` (CTn) as `primary/secondary`.
    static QString ptRatioText(const SimMeter& meter);
    static QString ctRatioText(const SimMeter& meter);
    static QString ctnRatioText(const SimMeter& meter);
    /// primary / secondary of such a text; 1 when it has no `/` or a part is not above 0.
    static double ratio(const QString& text);
};

} // namespace lorvane::sim
