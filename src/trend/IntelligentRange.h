// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/AxisRange.h"

#include <QList>
#include <QVector>
#include <optional>

namespace lorvane {

/// The range of the values that matter, without the rare spikes that would squeeze the rest
/// into a line: from the 0.5th to the 99.5th percentile, widened to take in every value that
/// lies within a tenth of that span beyond either end. So a lone spike far outside is left out,
/// while the tails of the data itself stay in view.
///
/// The percentiles are taken over at most `sampleLimit` values picked at an even stride (a
/// year of one-minute values is 25 million; an exact percentile would need a copy of them
/// all); the widening then looks at every value, so the ends are real values.
class IntelligentRange
{
public:
    static constexpr qsizetype sampleLimit = 1 << 20;
    static constexpr double lowShare = 0.005;
    static constexpr double highShare = 0.995;

    /// Over the values of all `columns` that are numbers; nothing when none is.
    static std::optional<AxisRange> of(const QList<const QVector<double>*>& columns);
};

} // namespace lorvane
