// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

class PqTestStatistics;

/// The pass rules this program applies again to each page of a test (the meter's own verdicts
/// in the `S_` columns may differ; neither overrides the other). Every count is read from the
/// statistics block; shares are compared as doubles against 0.95 of N (pages 0 to 4) or
/// 0.05 of N2 (pages 5 and 6).
///
/// The rules keep three asymmetries on purpose: one phase inside the band is enough for LSV
/// while every other rule needs all three; FLI and THD have no test for an empty period, so a
/// test with no counts passes them; and the frequency rule uses bins 4 and 5 when `P_Freq` is
/// set but bins 3 to 6 (with 1 and 8 empty) when it is 0.
class PageEvaluation
{
public:
    enum class Verdict
    {
        None, ///< the event pages 7 to 9 and any other index
        Passed,
        Failed,
    };

    static Verdict evaluate(int pageIndex, const PqTestStatistics& statistics);
    /// "Passed", "Failed" or "" (the words the report and the command line carry).
    static QString word(Verdict verdict);
};

} // namespace lorvane
