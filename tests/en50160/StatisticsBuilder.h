// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "en50160/PqTestStatistics.h"

#include <initializer_list>
#include <utility>

namespace lorvane::test {

/// `bin_{n}` numbers of the groups of a test row, for tests that write counts by meaning.
struct Bins
{
    static constexpr int n1 = 2, n2 = 3, n3 = 4;
    static int frequency(int bin) { return 5 + bin; }
    static int slow(int phase, int bin) { return 15 + 5 * phase + bin; }
    static int fast(int phase, int bin) { return 30 + 6 * phase + bin; }
    static int flicker(int phase, int bin) { return 48 + 2 * phase + bin; }
    static int unbalance(int bin) { return 54 + bin; }
    static int harmonic(int phase, int order) { return 57 + 24 * phase + order - 2; }
    static int thd(int phase) { return 129 + phase; }
};

/// A statistics block from (bin number, count) pairs and the two test parameters.
inline PqTestStatistics statistics(std::initializer_list<std::pair<int, double>> counts,
                                   int frequencyParameter = 1, int fastAllowance = 0)
{
    PqTestStatistics s;
    s.setParameters(frequencyParameter, fastAllowance);
    for (const auto& [bin, count] : counts)
        s.setBin(bin, count);
    return s;
}

} // namespace lorvane::test
