// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WaveformChannels.h"

#include <QString>
#include <functional>

namespace lorvane {

/// The sample table of the open capture as tab separated text for the clipboard.
class WaveExportText
{
public:
    /// Called every few thousand samples with (done, total); false cancels.
    using Progress = std::function<bool(int, int)>;

    /// Line 0: "Sample Point #", the seven channel labels, "Input 1" ... "Input 8"; then one
    /// line per sample: its number (from 0), the seven values and the eight input states
    /// (0 or 1, the lane offset removed). Lines end with "\n". Empty when cancelled.
    static QString text(const WaveformChannels& channels, const Progress& progress = {});
};

} // namespace lorvane
