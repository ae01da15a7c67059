// SPDX-License-Identifier: GPL-3.0-or-later
#include "AxisValueBox.h"

#include <cmath>

namespace lorvane {

std::optional<double> AxisValueBox::parse(const QString& text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !accepts(value))
        return std::nullopt;
    return value;
}

bool AxisValueBox::accepts(double value)
{
    return std::isfinite(value) && value > -limit && value < limit;
}

} // namespace lorvane
