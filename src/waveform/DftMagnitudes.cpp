// SPDX-License-Identifier: GPL-3.0-or-later
#include "DftMagnitudes.h"

#include "platform/LoadProgress.h"
#include "platform/UserText.h"

#include <cmath>

namespace lorvane {

namespace {

// Process-wide, not per object: the re-entry this stops comes from events pumped while a
// transform runs, and such an event may reach the transform through any caller.
bool transformRunning = false;

class RunningFlag
{
public:
    RunningFlag() { transformRunning = true; }
    ~RunningFlag() { transformRunning = false; }
    RunningFlag(const RunningFlag&) = delete;
    RunningFlag& operator=(const RunningFlag&) = delete;
};

} // namespace

int DftMagnitudes::compute(const std::vector<SpectrumRecord>& input,
                           std::vector<SpectrumRecord>& output, int count, LoadProgress* progress)
{
    if (count <= 0 || transformRunning)
        return 1;
    const auto needed = static_cast<std::size_t>(count) + 1;
    if (input.size() < needed || output.size() < needed)
        return 1;
    const RunningFlag running;

    // The step is rounded to single precision on purpose and the angles are then formed in
    // extended precision from that rounded value: the tables carry the rounding, not the
    // multiplication.
    const float step = static_cast<float>(2.0 * 3.14159265 / count);
    std::vector<double> cosTable(static_cast<std::size_t>(count));
    std::vector<double> sinTable(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const long double angle = static_cast<long double>(step) * i;
        cosTable[static_cast<std::size_t>(i)] = static_cast<double>(std::cos(angle));
        sinTable[static_cast<std::size_t>(i)] = static_cast<double>(std::sin(angle));
    }

    const QString caption = userText("502000", "Calculating DFT");
    if (progress) {
        progress->status(caption);
        progress->advance(0, count);
    }
    for (int k = 0; k < count; ++k) {
        SpectrumRecord& bin = output[static_cast<std::size_t>(k) + 1];
        for (int n = 0; n < count; ++n) {
            const auto index = static_cast<std::size_t>(static_cast<long long>(k) * n % count);
            const double x = input[static_cast<std::size_t>(n) + 1].real;
            bin.real += x * cosTable[index];
            bin.imag -= x * sinTable[index];
        }
        if (progress) {
            if (k % 5 == 0)
                progress->status(caption + QStringLiteral(": %1/%2").arg(k).arg(count));
            progress->advance(k + 1, count);
            if (progress->cancelRequested())
                return 2;
        }
    }
    for (int k = 1; k <= count; ++k) {
        SpectrumRecord& bin = output[static_cast<std::size_t>(k)];
        const double re = bin.real / count;
        const double im = bin.imag / count;
        bin.magnitude = std::sqrt(re * re + im * im);
    }
    return 0;
}

} // namespace lorvane
