// SPDX-License-Identifier: GPL-3.0-or-later
#include "waveform/DftMagnitudes.h"

#include "support/RecordingProgress.h"
#include "waveform/HarmonicSpectrum.h"

#include <QStringList>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

using namespace lorvane;

namespace {

// The table-driven transform written out from its definition: angles of the single-precision
// step of the literal pi times the reduced index, formed in extended precision, and the index
// advanced by k each sample instead of multiplied and reduced.
std::vector<double> referenceMagnitudes(const std::vector<double>& x)
{
    const std::size_t count = x.size();
    const float step = static_cast<float>(2.0 * 3.14159265 / static_cast<double>(count));
    std::vector<double> c(count);
    std::vector<double> s(count);
    for (std::size_t j = 0; j < count; ++j) {
        c[j] = static_cast<double>(std::cos(static_cast<long double>(step) * j));
        s[j] = static_cast<double>(std::sin(static_cast<long double>(step) * j));
    }
    std::vector<double> result;
    for (std::size_t k = 0; k < count; ++k) {
        double re = 0;
        double im = 0;
        std::size_t j = 0;
        for (std::size_t n = 0; n < count; ++n) {
            re += x[n] * c[j];
            im -= x[n] * s[j];
            j = (j + k) % count;
        }
        const auto divisor = static_cast<double>(count);
        result.push_back(std::hypot(re / divisor, im / divisor));
    }
    return result;
}

// A mains-like window: fundamental at `bin`, 5th harmonic, an interharmonic at 1.5 x, DC and
// noise.
std::vector<double> mainsWindow(int count, int bin, unsigned seed)
{
    std::mt19937 generator(seed);
    std::normal_distribution<double> noise(0.0, 0.5);
    std::vector<double> x(static_cast<std::size_t>(count));
    for (int n = 0; n < count; ++n) {
        const double t = 2 * std::numbers::pi * bin * n / count;
        x[static_cast<std::size_t>(n)] = 325 * std::sin(t + 0.3) + 13 * std::sin(5 * t) +
                                         16 * std::sin(1.5 * t) + 3 + noise(generator);
    }
    return x;
}

} // namespace

TEST(DftMagnitudes, BothPathsMatchTheReferenceForEveryWindowSize)
{
    struct Size
    {
        int count;
        int fundamentalBin;
    };
    std::vector<Size> sizes;
    for (int rate : {16, 32, 48, 64, 128, 256, 512, 1024}) {
        sizes.push_back({rate, 1});       // one cycle, the harmonic window
        sizes.push_back({12 * rate, 12}); // the interharmonic window
    }
    sizes.push_back({192, 12});
    unsigned seed = 1;
    for (const Size& size : sizes) {
        SCOPED_TRACE(size.count);
        const std::vector<double> x = mainsWindow(size.count, size.fundamentalBin, seed++);
        const std::vector<double> reference = referenceMagnitudes(x);
        const std::vector<double> fast = HarmonicSpectrum::magnitudes(x);
        const std::vector<double> quadratic =
            HarmonicSpectrum::magnitudes(x, HarmonicSpectrum::Method::Quadratic);
        ASSERT_EQ(fast.size(), reference.size());
        ASSERT_EQ(quadratic.size(), reference.size());
        const double fundamental = reference[static_cast<std::size_t>(size.fundamentalBin)];
        // Half the amplitude, give or take the leakage of the 1.5 x tone.
        EXPECT_NEAR(fundamental, 162.5, 3.0);
        for (std::size_t k = 0; k < reference.size(); ++k) {
            EXPECT_NEAR(fast[k], reference[k], 1e-6 * fundamental) << "bin " << k;
            // Same tables and order of sums: only rounding differences remain.
            EXPECT_NEAR(quadratic[k], reference[k], 1e-11 * fundamental) << "bin " << k;
        }
    }
}

TEST(DftMagnitudes, SinglePrecisionStepIsVisibleAgainstAnExactTransform)
{
    // The tables are those of a slightly wrong step: an exact DFT of a pure bin-1 cosine has no
    // leakage at all, the table's result has some, small but far above double rounding.
    const int count = 1000;
    std::vector<double> x(count);
    for (int n = 0; n < count; ++n)
        x[static_cast<std::size_t>(n)] = std::cos(2 * std::numbers::pi * n / count);
    const std::vector<double> quadratic =
        HarmonicSpectrum::magnitudes(x, HarmonicSpectrum::Method::Quadratic);
    const std::vector<double> fast = HarmonicSpectrum::magnitudes(x);
    double largest = 0;
    for (std::size_t k = 0; k < x.size(); ++k)
        largest = std::max(largest, std::fabs(quadratic[k] - fast[k]));
    EXPECT_GT(largest, 1e-12);
    EXPECT_LT(largest, 1e-6);
}

TEST(DftMagnitudes, ProgressGuardAndBadCounts)
{
    const int count = 12;
    std::vector<SpectrumRecord> in(count + 1);
    for (int n = 1; n <= count; ++n)
        in[static_cast<std::size_t>(n)].real = n % 3;
    std::vector<SpectrumRecord> out(count + 1);
    // An event served during the run that asks for another transform is turned away; a
    // cancel stops the run at the bin it is asked.
    struct Watcher : RecordingProgress
    {
        const std::vector<SpectrumRecord>* in = nullptr;
        int nested = -1;
        int cancelAt = -1;

    protected:
        void showFraction(std::optional<double> fraction) override
        {
            RecordingProgress::showFraction(fraction);
            if (fractions.size() == 4) {
                std::vector<SpectrumRecord> other(count + 1);
                nested = DftMagnitudes::compute(*in, other, count);
            }
            if (int(fractions.size()) == cancelAt)
                requestCancel();
        }
    };
    Watcher watcher;
    watcher.in = &in;
    EXPECT_EQ(DftMagnitudes::compute(in, out, count, &watcher), 0);
    EXPECT_EQ(watcher.nested, 1);
    EXPECT_EQ(watcher.texts, QStringList({"Calculating DFT", "Calculating DFT: 0/12",
                                          "Calculating DFT: 5/12", "Calculating DFT: 10/12"}));
    ASSERT_EQ(watcher.fractions.size(), count + 1);
    EXPECT_EQ(watcher.fractions.front(), 0);
    EXPECT_EQ(watcher.fractions.back(), 1);
    Watcher cancelling;
    cancelling.in = &in;
    cancelling.cancelAt = 6;
    std::vector<SpectrumRecord> stopped(count + 1);
    EXPECT_EQ(DftMagnitudes::compute(in, stopped, count, &cancelling), 2);
    EXPECT_EQ(cancelling.fractions.size(), 6) << "stopped at the bin the cancel came";
    // DC of 0,1,2,0,1,2,... (n from 1): mean 1.
    EXPECT_NEAR(out[1].magnitude, 1.0, 1e-12);
    // The guard is cleared at the end: the next call runs.
    std::vector<SpectrumRecord> again(count + 1);
    EXPECT_EQ(DftMagnitudes::compute(in, again, count), 0);
    EXPECT_NEAR(again[1].magnitude, 1.0, 1e-12);

    EXPECT_EQ(DftMagnitudes::compute(in, out, 0), 1);
    EXPECT_EQ(DftMagnitudes::compute(in, out, -4), 1);
    std::vector<SpectrumRecord> tooShort(count);
    EXPECT_EQ(DftMagnitudes::compute(in, tooShort, count), 1);
    EXPECT_TRUE(HarmonicSpectrum::magnitudes({}).empty());
}
