// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The pages of an EN 50160 evaluation in report order; the index is the page number used by
/// the evaluation, the charts and the report.
enum class En50160Page
{
    FRE, ///< frequency
    LSV, ///< long slow voltage
    FVF, ///< fast voltage
    FLI, ///< flicker
    SVU, ///< supply voltage unbalance
    HAR, ///< harmonics
    THD, ///< total harmonic distortion
    VOD, ///< voltage overdeviations
    SIV, ///< short interruptions
    LIV, ///< long interruptions
};

constexpr int en50160PageCount = 10;
/// Pages 0 to 6 carry a pass rule; the event pages 7 to 9 have none.
constexpr int en50160RuledPages = 7;

/// "FRE", "LSV" ... by index 0..9; empty for any other index.
QString en50160PageKey(int index);

} // namespace lorvane
