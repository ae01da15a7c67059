// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane {

/// The float-to-integer conversion the waveform arithmetic has always used: to the nearest
/// integer, halves to the even one (2.5 -> 2, 3.5 -> 4).
class BankersRounding
{
public:
    /// `value` rounded half to even; values beyond a billion in size are clamped there first
    /// and a value that is not finite gives 0.
    static int toInt(double value);
};

} // namespace lorvane
