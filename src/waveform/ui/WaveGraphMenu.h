// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>

namespace lorvane {

class TalWaveGraphPE;
class YExtentsTarget;

/// "PopUp Menu1" of a waveform graph: marks, zoom modes, the window's commands, colours, the
/// user's note, "Undo Zoom", the interharmonic start and frequency, options and the y extents.
/// Each entry calls the window, which acts on the view shown.
class WaveGraphMenu : public QMenu
{
    Q_OBJECT

public:
    /// The menu for a right click at `x` ms on `chart` (of channel `channel`, -1 for a graph
    /// of no capture channel).
    WaveGraphMenu(TalWaveGraphPE& window, YExtentsTarget* chart, int channel, double x);

private:
    void addFrequencyChoice(QMenu* into);

    TalWaveGraphPE& m_window;
};

} // namespace lorvane
