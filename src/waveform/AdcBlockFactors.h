// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>

namespace lorvane {

class clsCSVParser;

/// The two sets of nine converter factors of a capture file (volts or amps per count), and
/// the scale of a channel by its id. Without a "DSP ADC Block Factors" block in the file the
/// built-in scales apply.
class AdcBlockFactors
{
public:
    /// The ratios a channel's scale is multiplied by: PT, PT aux, CT, CTn; 0 counts as 1.
    struct Ratios
    {
        double pt = 1.0;
        double ptAux = 1.0;
        double ct = 1.0;
        double ctn = 1.0;
    };

    AdcBlockFactors();

    /// Reads the block from `parser`: nine cells of the label's column + 3 from two lines
    /// below it, nine more from twelve lines below. Only values above 0 replace a default.
    /// Without the block the defaults stay and `found` is false.
    void read(const clsCSVParser& parser);
    bool found() const { return m_found; }
    /// Factor `position` (1..9) of set 1 or 2.
    double first(int position) const { return m_first.at(position - 1); }
    double second(int position) const { return m_second.at(position - 1); }

    /// Volts or amps per count of channel `channelId`, times the ratio its kind uses; 1 for an
    /// id the table does not know.
    double sampleScale(int channelId, const Ratios& ratios) const;

    /// The ratio of a "primary/secondary" text: primary / secondary when both are above 0,
    /// else 1 (also for a text without "/").
    static double ratio(const QString& text);

private:
    std::array<double, 9> m_first;
    std::array<double, 9> m_second;
    bool m_found = false;
};

} // namespace lorvane
