// SPDX-License-Identifier: GPL-3.0-or-later
#include "ValueFormat.h"

#include "platform/UserText.h"

#include <cmath>

namespace lorvane {

QString ValueFormat::settingsPattern(const QString& dataFormat)
{
    return QStringLiteral("#,##") + (dataFormat.isEmpty() ? QStringLiteral("0") : dataFormat);
}

ValueFormat::Pattern::Pattern(const QString& pattern, const QLocale& locale)
    : m_locale(locale), m_groupSeparator(locale.groupSeparator()),
      m_decimalPoint(locale.decimalPoint()), m_negativeSign(locale.negativeSign())
{
    const qsizetype point = pattern.indexOf(QLatin1Char('.'));
    const QString integerPart = point < 0 ? pattern : pattern.left(point);
    const QString fractionPart = point < 0 ? QString() : pattern.mid(point + 1);
    m_required = int(fractionPart.count(QLatin1Char('0')));
    m_optional = int(fractionPart.count(QLatin1Char('#')));
    m_grouped = integerPart.contains(QLatin1Char(','));
    m_leadingZero = integerPart.contains(QLatin1Char('0'));
}

QString ValueFormat::Pattern::text(double value) const
{
    if (!std::isfinite(value))
        return m_locale.toString(value);
    // Round once to the most decimals shown, then drop the optional zeros at the end. The
    // digits are plain ASCII: they are cut and grouped as bytes, and become text once.
    const QByteArray digits = QByteArray::number(std::fabs(value), 'f', m_required + m_optional);
    const qsizetype dot = digits.indexOf('.');
    qsizetype wholeEnd = dot < 0 ? digits.size() : dot;
    qsizetype fractionEnd = digits.size();
    const qsizetype fractionStart = dot < 0 ? digits.size() : dot + 1;
    while (fractionEnd - fractionStart > m_required && digits.at(fractionEnd - 1) == '0')
        --fractionEnd;
    bool zero = true;
    for (qsizetype i = 0; i < fractionEnd && zero; ++i)
        zero = i == dot || digits.at(i) == '0';
    qsizetype wholeStart = 0;
    if (wholeEnd == 1 && digits.at(0) == '0' && !m_leadingZero)
        wholeStart = 1;

    QString out;
    out.reserve(int(fractionEnd + wholeEnd / 3 + 2));
    if (value < 0 && !zero)
        out += m_negativeSign;
    const qsizetype wholeSize = wholeEnd - wholeStart;
    for (qsizetype i = wholeStart; i < wholeEnd; ++i) {
        const qsizetype left = wholeEnd - i;
        if (m_grouped && wholeSize > 3 && i > wholeStart && left % 3 == 0)
            out += m_groupSeparator;
        out += QLatin1Char(digits.at(i));
    }
    if (fractionEnd > fractionStart) {
        out += m_decimalPoint;
        for (qsizetype i = fractionStart; i < fractionEnd; ++i)
            out += QLatin1Char(digits.at(i));
    }
    if (out.isEmpty())
        out = QStringLiteral("0");
    return out;
}

QString ValueFormat::text(double value, const QString& pattern, const QLocale& locale)
{
    return Pattern(pattern, locale).text(value);
}

QString ValueFormat::powerFactorText(double code, const QString& fallbackPattern,
                                     const QLocale& locale)
{
    return powerFactorText(code, Pattern(fallbackPattern, locale));
}

QString ValueFormat::powerFactorText(double code, const Pattern& fallback)
{
    // The second range holds the same bands with 10 added.
    const double x = code >= 10.0 && code < 20.0 ? code - 10.0 : code;
    if (x < 0.0 || x >= 4.0)
        return fallback.text(code);
    const Pattern factor(QStringLiteral("0.000"), fallback.locale());
    const auto word = [&](const char* id, const char* english, double shown) {
        return userText(id, english) + QLatin1Char(' ') + factor.text(shown);
    };
    if (x == 0.0 || x == 1.0)
        return factor.text(x);
    if (x < 1.0)
        return word("402001", "LAG", x);
    if (x < 2.0)
        return word("402002", "LEAD", 2.0 - x);
    if (x < 3.0)
        return word("402002", "LEAD", -(x - 2.0));
    return word("402001", "LAG", x - 4.0);
}

} // namespace lorvane
