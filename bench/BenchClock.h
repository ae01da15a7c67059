// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace lorvane::bench {

/// Median wall time of `rounds` runs of `work`, in milliseconds. The machines are shared and
/// noisy: the median of interleaved runs is steadier than a mean.
inline double medianMs(const std::function<void()>& work, int rounds)
{
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const auto end = std::chrono::steady_clock::now();
        times.push_back(std::chrono::duration<double, std::milli>(end - start).count());
    }
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

/// Runs subject and baseline in alternation and prints both medians and their ratio.
inline double compare(const char* name, const std::function<void()>& subject,
                      const std::function<void()>& baseline, int rounds)
{
    std::vector<double> s, b;
    for (int i = 0; i < rounds; ++i) {
        s.push_back(medianMs(subject, 1));
        b.push_back(medianMs(baseline, 1));
    }
    std::sort(s.begin(), s.end());
    std::sort(b.begin(), b.end());
    const double subjectMs = s.at(s.size() / 2);
    const double baselineMs = b.at(b.size() / 2);
    const double ratio = baselineMs > 0 ? subjectMs / baselineMs : 0.0;
    std::printf("%-40s lorvane %9.3f ms   baseline %9.3f ms   ratio %6.2f\n", name, subjectMs,
                baselineMs, ratio);
    return ratio;
}

} // namespace lorvane::bench
