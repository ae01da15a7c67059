// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqCounts.h"

#include <cmath>

namespace lorvane {

namespace {

/// Upper limits of duration bins 1 to 22 in milliseconds, exclusive; bin 23 has none. The
/// limits follow the cycles of a 60 Hz supply (8.333 ms a half cycle) up to one second.
constexpr std::array<double, PqCounts::durationBins - 1> durationLimits{
    8.333, 16.667, 33.333, 50,   66.666, 83.333, 166.666, 333.332, 499.998, 666.664, 833.33,
    1000,  2000,   3000,   4000, 5000,   10000,  20000,   30000,   40000,   50000,   100000};

} // namespace

std::optional<int> PqCounts::durationBin(double milliseconds)
{
    if (!(milliseconds > 0))
        return std::nullopt;
    for (int i = 0; i < int(durationLimits.size()); ++i) {
        if (milliseconds < durationLimits[i])
            return i + 1;
    }
    return durationBins;
}

std::optional<int> PqCounts::magnitudeBin(double percent)
{
    if (!(percent >= 0))
        return std::nullopt;
    if (percent >= 200)
        return magnitudeBins;
    return int(std::floor(percent / 10.0)) + 1;
}

bool PqCounts::BinEvent(Matrix& matrix, double durationSeconds, double magnitudePercent)
{
    const std::optional<int> duration = durationBin(durationSeconds * 1000.0);
    const std::optional<int> magnitude = magnitudeBin(magnitudePercent);
    if (!duration || !magnitude)
        return false;
    ++matrix[*magnitude - 1][*duration - 1];
    return true;
}

PqCounts::Matrix PqCounts::matrix(const PqChannelEvents& events)
{
    Matrix cells{};
    for (const QList<PqEvent>& channel : events) {
        for (const PqEvent& event : channel)
            BinEvent(cells, event.durationSeconds, event.magnitudePercent);
    }
    return cells;
}

PqCounts::Sums PqCounts::BuildCounts(const Matrix& matrix)
{
    Sums sums{};
    qint64 total = 0;
    for (const auto& row : matrix) {
        for (const qint64 cell : row)
            total += cell;
    }
    qint64 running = 0;
    for (int m = 0; m < magnitudeBins; ++m) {
        Sum& sum = sums[m];
        for (const qint64 cell : matrix[m])
            sum.count += cell;
        running += sum.count;
        sum.cumulative = running;
        // With no events there is no share to give: the column stays empty.
        if (total > 0)
            sum.cumulativePercent = 100.0 * double(running) / double(total);
    }
    return sums;
}

const QStringList& PqCounts::durationLabels()
{
    // The texts keep the spacing and the ".82" of the meter software's tables that users
    // compare with.
    static const QStringList labels{
        QStringLiteral("< 8.3 ms"),         QStringLiteral("8.3 to 16.7 ms"),
        QStringLiteral("16.7 to 33.3 ms"),  QStringLiteral("33.3 to 50 ms"),
        QStringLiteral("50 to 66.7ms"),     QStringLiteral("66.7 to 83.3ms"),
        QStringLiteral("83.3 to 166.7ms"),  QStringLiteral("166.7 to 333.3ms "),
        QStringLiteral("333.3 to 500ms"),   QStringLiteral("500 to 666.7ms"),
        QStringLiteral("666.7 to 833.3ms"), QStringLiteral(".82 to 1 sec"),
        QStringLiteral("1 to 2 sec"),       QStringLiteral("2 to 3 sec"),
        QStringLiteral("3 to 4 sec"),       QStringLiteral("4 to 5 sec"),
        QStringLiteral("5 to 10 sec"),      QStringLiteral("10 to 20 sec"),
        QStringLiteral("20 to 30 sec"),     QStringLiteral("30 to 40 sec"),
        QStringLiteral("40 to 50 sec"),     QStringLiteral("50 to 100 sec"),
        QStringLiteral("> 100 sec")};
    return labels;
}

const QStringList& PqCounts::magnitudeLabels()
{
    static const QStringList labels = [] {
        QStringList out;
        for (int m = 1; m < magnitudeBins; ++m)
            out << QStringLiteral("%1 to %2").arg(10 * (m - 1)).arg(10 * m);
        out << QStringLiteral("> 200");
        return out;
    }();
    return labels;
}

} // namespace lorvane
