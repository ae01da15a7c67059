// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WavePqEvent.h"
#include "WaveformRecord.h"

#include <QList>
#include <QString>
#include <optional>
#include <utility>

namespace lorvane {

/// The rows of the properties window of an open capture: name and value, in their fixed order,
/// each only when the capture holds its data.
class WaveformProperties
{
public:
    using Row = std::pair<QString, QString>;
    /// The bit of `HookUp` that tells a meter with the B-Pack module.
    static constexpr qint32 bPackBit = 0x100;

    /// Rows for `record`; the PQ rows only when `pq` is given.
    static QList<Row> rows(const WaveformRecord& record, const std::optional<WavePqEvent>& pq);

    /// Wiring text of the low byte of `hookUp` ("Wye", "Delta, 3 CTs" ...); empty when unknown.
    /// The delta texts of hook-ups 1 and 2 differ for the family without the neutral current
    /// (device type 0), which wires its current transformers differently.
    static QString hookupText(qint32 hookUp, qint32 deviceTypeId);
    /// Name of the row of the wiring ("Hookup").
    static QString hookupLabel();
    /// Name of the wiring's picture in the program's picture folder ("WWye" ...), empty when
    /// the wiring has none.
    static QString hookupPicture(qint32 hookUp, qint32 deviceTypeId);
    /// "Capture Item(s)": the channels the row carries, by sample rate and record format.
    static QString captureItems(const WaveformRecord& record);
    /// Value text of RMS column `column` (0 Van ... 11 Vca): the value with two decimals,
    /// "Not measured" where the wiring has no such quantity, "N/A" for a value not stored (NaN).
    static QString rmsText(const WaveformRecord& record, int column);
    /// The rows as lines of "name<TAB>value", for the clipboard.
    static QString clipboardText(const QList<Row>& rows);
};

} // namespace lorvane
