// SPDX-License-Identifier: GPL-3.0-or-later
#include "LoadProgress.h"

#include <algorithm>

namespace lorvane {

std::optional<double> LoadProgress::fractionOf(qint64 done, qint64 total)
{
    if (total <= 0)
        return std::nullopt;
    return double(done) / double(total);
}

void LoadProgress::setFraction(std::optional<double> fraction)
{
    showFraction(fraction ? std::optional<double>(std::clamp(*fraction, 0.0, 1.0)) : fraction);
}

void ProgressShare::showFraction(std::optional<double> fraction)
{
    // A stretch of unknown length holds the whole at the stretch's start.
    m_whole.setFraction(m_from + fraction.value_or(0.0) * (m_to - m_from));
}

void ProgressShare::serve()
{
    if (m_whole.cancelRequested())
        requestCancel();
}

} // namespace lorvane
