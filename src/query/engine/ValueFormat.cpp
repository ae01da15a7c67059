// SPDX-License-Identifier: GPL-3.0-or-later
#include "ValueFormat.h"

#include "platform/UserText.h"

#include <cmath>

namespace lorvane {

QString ValueFormat::settingsPattern(const QString& dataFormat)
{
    return QStringLiteral("#,##") + (dataFormat.isEmpty() ? QStringLiteral("0") : dataFormat);
}

QString ValueFormat::text(double value, const QString& pattern, const QLocale& locale)
{
    if (!std::isfinite(value))
        return locale.toString(value);
    const qsizetype point = pattern.indexOf(QLatin1Char('.'));
    const QString integerPart = point < 0 ? pattern : pattern.left(point);
    const QString fractionPart = point < 0 ? QString() : pattern.mid(point + 1);
    const int required = int(fractionPart.count(QLatin1Char('0')));
    const int optional = int(fractionPart.count(QLatin1Char('#')));
    const bool grouped = integerPart.contains(QLatin1Char(','));
    const bool leadingZero = integerPart.contains(QLatin1Char('0'));

    // Round once to the most decimals shown, then drop the optional zeros at the end.
    QString digits = QString::number(std::fabs(value), 'f', required + optional);
    const qsizetype dot = digits.indexOf(QLatin1Char('.'));
    QString whole = dot < 0 ? digits : digits.left(dot);
    QString fraction = dot < 0 ? QString() : digits.mid(dot + 1);
    while (fraction.size() > required && fraction.endsWith(QLatin1Char('0')))
        fraction.chop(1);
    const bool zero = whole.count(QLatin1Char('0')) == whole.size() &&
                      fraction.count(QLatin1Char('0')) == fraction.size();
    if (whole == QLatin1String("0") && !leadingZero)
        whole.clear();
    if (grouped && whole.size() > 3) {
        const QString separator = locale.groupSeparator();
        for (qsizetype at = whole.size() - 3; at > 0; at -= 3)
            whole.insert(at, separator);
    }
    QString out = whole;
    if (!fraction.isEmpty())
        out += locale.decimalPoint() + fraction;
    if (out.isEmpty())
        out = QStringLiteral("0");
    if (value < 0 && !zero)
        out.prepend(locale.negativeSign());
    return out;
}

QString ValueFormat::powerFactorText(double code, const QString& fallbackPattern,
                                     const QLocale& locale)
{
    // The second range holds the same bands with 10 added.
    const double x = code >= 10.0 && code < 20.0 ? code - 10.0 : code;
    const QString factor = QStringLiteral("0.000");
    const auto word = [&](const char* id, const char* english, double shown) {
        return userText(id, english) + QLatin1Char(' ') + text(shown, factor, locale);
    };
    if (x < 0.0 || x >= 4.0)
        return text(code, fallbackPattern, locale);
    if (x == 0.0 || x == 1.0)
        return text(x, factor, locale);
    if (x < 1.0)
        return word("402001", "LAG", x);
    if (x < 2.0)
        return word("402002", "LEAD", 2.0 - x);
    if (x < 3.0)
        return word("402002", "LEAD", -(x - 2.0));
    return word("402001", "LAG", x - 4.0);
}

} // namespace lorvane
