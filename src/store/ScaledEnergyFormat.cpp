// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScaledEnergyFormat.h"

#include <algorithm>

namespace lorvane {

ScaledEnergyFormat::ScaledEnergyFormat(int units, int decimals)
    : m_units(units), m_decimals(std::clamp(decimals, 0, maximumDecimals))
{
}

QString ScaledEnergyFormat::pattern() const
{
    QString text = QStringLiteral("#,##0");
    if (m_decimals > 0)
        text += u'.' + QString(m_decimals, u'0');
    return text;
}

QString ScaledEnergyFormat::unitPrefix() const
{
    switch (m_units) {
    case 1:
        return QStringLiteral("k");
    case 2:
        return QStringLiteral("M");
    case 3:
        return QStringLiteral("G");
    default:
        return {};
    }
}

} // namespace lorvane
