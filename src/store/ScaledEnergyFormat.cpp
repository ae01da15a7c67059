// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScaledEnergyFormat.h"

#include "platform/SqliteDatabase.h"

#include <algorithm>

namespace lorvane {

ScaledEnergyFormat::ScaledEnergyFormat(int digits, int units, int decimals)
    : m_digits(digits), m_units(units), m_decimals(std::clamp(decimals, 0, maximumDecimals))
{
}

std::optional<ScaledEnergyFormat> ScaledEnergyFormat::read(SqliteDatabase& meter,
                                                           qint64 profileIndex, qint64 formatId)
{
    SqlStatement row =
        meter.prepare(QStringLiteral("SELECT [Digits], [Units], [Decimals] FROM [ScaledFormats] "
                                     "WHERE [ProfileIndex] = ? AND [FormatID] = ? LIMIT 1;"));
    row.bind(1, profileIndex).bind(2, formatId);
    if (!row.next())
        return std::nullopt;
    return ScaledEnergyFormat(static_cast<int>(row.integer(0)), static_cast<int>(row.integer(1)),
                              static_cast<int>(row.integer(2)));
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

QString ScaledEnergyFormat::text(double value, const QLocale& locale) const
{
    QLocale grouped = locale;
    grouped.setNumberOptions(locale.numberOptions() & ~QLocale::OmitGroupSeparator);
    return grouped.toString(value, 'f', m_decimals);
}

} // namespace lorvane
