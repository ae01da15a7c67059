// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli waveform --meter FILE --record N [--json] [--samples csv]`: runs the waveform
/// view over the whole meter in a scratch database of its own, opens capture `RecCounter` N
/// and prints its header (text or JSON), or its time axis and channels as CSV. With
/// `--stats CHANNEL --at MS` it prints the statistics of the cycle clicked at MS, with
/// `--interharmonic CHANNEL --start SAMPLE --system 50|60` the interharmonic groups and
/// spectrum (text or JSON).
class WaveformCommand
{
public:
    /// Returns an ExitCode; messages go to stderr, the output to stdout.
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
