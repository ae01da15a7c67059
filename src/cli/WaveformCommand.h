// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane::cli {

/// `lorvane-cli waveform --meter FILE --record N [--json] [--samples csv]`: runs the waveform
/// view over the whole meter in a scratch database of its own, opens capture `RecCounter` N
/// and prints its header (text or JSON), or its time axis and channels as CSV.
class WaveformCommand
{
public:
    /// Returns an ExitCode; messages go to stderr, the output to stdout.
    static int run(const QStringList& arguments);
};

} // namespace lorvane::cli
