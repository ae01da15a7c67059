// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>
#include <array>

namespace lorvane {

/// The samples of the open capture: a time axis in milliseconds and fifteen channels of
/// `sampleCount` single-precision values. Channel numbers 0 to 14 are Va, Vb, Vc, Ia, Ib, Ic,
/// I_n, Input1 to Input8. Va to Vc hold the display voltages of the wiring (phase to neutral or
/// line to line); an input holds its state plus twice its lane (Input2 is 2 or 3).
struct WaveformChannels
{
    static constexpr int channelCount = 15;
    static constexpr int analogCount = 7;
    enum Channel
    {
        Va = 0,
        Vb,
        Vc,
        Ia,
        Ib,
        Ic,
        In,
        Input1,
    };

    QVector<float> time;
    std::array<QVector<float>, channelCount> samples;
    /// Display label of each channel ("Van", "Vab", "Ib (reconstructed)", "In-N/A" ...).
    std::array<QString, channelCount> labels;
    /// The channel holds samples of this capture (a channel the row did not carry is false).
    std::array<bool, channelCount> recorded{};

    /// Every array to `count` zeros; labels and flags are kept.
    void resize(int count)
    {
        time.fill(0.0F, count);
        for (QVector<float>& channel : samples)
            channel.fill(0.0F, count);
    }
    int sampleCount() const { return static_cast<int>(time.size()); }
};

} // namespace lorvane
