// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WaveformChannels.h"

#include <QString>

namespace lorvane {

class LoadProgress;

/// The sample table of the open capture as tab separated text for the clipboard.
class WaveExportText
{
public:
    /// Line 0: "Sample Point #", the seven channel labels, "Input 1" ... "Input 8"; then one
    /// line per sample: its number (from 0), the seven values and the eight input states
    /// (0 or 1, the lane offset removed). Lines end with "\n". `progress` gets the share of
    /// samples written every few thousand samples, with its cancel asked there: empty when
    /// cancelled.
    static QString text(const WaveformChannels& channels, LoadProgress* progress = nullptr);
};

} // namespace lorvane
