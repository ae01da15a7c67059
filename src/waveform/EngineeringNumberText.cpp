// SPDX-License-Identifier: GPL-3.0-or-later
#include "EngineeringNumberText.h"

#include "platform/UserText.h"

#include <cmath>

namespace lorvane {

QString EngineeringNumberText::withLeadingZero(double value)
{
    return format(value, true);
}

QString EngineeringNumberText::withoutLeadingZero(double value)
{
    return format(value, false);
}

QString EngineeringNumberText::format(double value, bool leadingZero)
{
    if (!std::isfinite(value))
        return userText("502001", "N/A");
    double scaled = value;
    QString prefix;
    if (value >= 1e9) {
        scaled = value / 1e9;
        prefix = QStringLiteral("G");
    } else if (value >= 1e6) {
        scaled = value / 1e6;
        prefix = QStringLiteral("M");
    } else if (value >= 1e3) {
        scaled = value / 1e3;
        prefix = QStringLiteral("k");
    }
    QString text = QString::number(scaled, 'f', 2);
    if (text == QLatin1String("-0.00"))
        text = QStringLiteral("0.00");
    // ".00" keeps no digit before the point when the whole part is zero.
    if (!leadingZero) {
        if (text.startsWith(QLatin1String("0.")))
            text.remove(0, 1);
        else if (text.startsWith(QLatin1String("-0.")))
            text.remove(1, 1);
    }
    return text + prefix;
}

} // namespace lorvane
