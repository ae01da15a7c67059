// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PqEvents.h"

#include <QStringList>
#include <array>
#include <optional>

namespace lorvane {

/// The counts of the histograms: events by magnitude bin (21 rows, 10 % wide, the last one
/// 200 % and above) and duration bin (23 columns, from under half a 60 Hz cycle to over
/// 100 s), and the magnitude histogram's sums.
class PqCounts
{
public:
    static constexpr int magnitudeBins = 21;
    static constexpr int durationBins = 23;
    /// cells[magnitude bin - 1][duration bin - 1]
    using Matrix = std::array<std::array<qint64, durationBins>, magnitudeBins>;

    /// One row of the table of sums: the row sum of a magnitude bin, the running sum, and the
    /// running sum in percent of all events (none when there are no events).
    struct Sum
    {
        qint64 count = 0;
        qint64 cumulative = 0;
        std::optional<double> cumulativePercent;
    };
    using Sums = std::array<Sum, magnitudeBins>;

    /// Duration bin (1 to 23) of `milliseconds`: the first bin whose upper limit lies above
    /// it; nothing for a duration that is not above 0.
    static std::optional<int> durationBin(double milliseconds);
    /// Magnitude bin (1 to 21) of `percent`: 10 % steps with the lower limit inclusive, 200 %
    /// and above in bin 21; nothing for a magnitude below 0 or not a number.
    static std::optional<int> magnitudeBin(double percent);
    /// BinEvent: adds one event of `durationSeconds` and `magnitudePercent` to its cell.
    /// False when the event falls in no bin (duration not above 0, magnitude below 0).
    static bool BinEvent(Matrix& matrix, double durationSeconds, double magnitudePercent);
    /// Every event of every channel binned.
    static Matrix matrix(const PqChannelEvents& events);
    /// BuildCounts: the table of sums of `matrix`, rows in magnitude bin order.
    static Sums BuildCounts(const Matrix& matrix);

    /// Labels of the bins in order ("< 8.3 ms" ...; "0 to 10" ... "> 200").
    static const QStringList& durationLabels();
    static const QStringList& magnitudeLabels();
};

} // namespace lorvane
