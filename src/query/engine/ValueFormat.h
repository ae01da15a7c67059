// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>

namespace lorvane {

/// The cell texts of the value grids: numbers in a "#,##0.00"-style pattern, the scaled
/// energy patterns, power factor band codes as "LAG"/"LEAD" words, and the mark of an empty
/// cell.
class ValueFormat
{
public:
    /// A number pattern taken apart once, for grids that print many values in one pattern;
    /// `text` gives what `ValueFormat::text` gives for the same pattern and locale.
    class Pattern
    {
    public:
        Pattern(const QString& pattern, const QLocale& locale);
        QString text(double value) const;
        const QLocale& locale() const { return m_locale; }

    private:
        QLocale m_locale;
        int m_required = 0;
        int m_optional = 0;
        bool m_grouped = false;
        bool m_leadingZero = false;
        QString m_groupSeparator;
        QString m_decimalPoint;
        QString m_negativeSign;
    };

    /// The text of a cell without a value.
    static QString nullText() { return QStringLiteral("----"); }

    /// The grid's pattern from the `DataFormat` setting: "#,##" followed by the setting
    /// ("0.00" gives "#,##0.00"). An empty setting gives "#,##0".
    static QString settingsPattern(const QString& dataFormat);

    /// `value` in a pattern of '#', '0', ',' and one '.': a ',' in the integer part groups
    /// thousands; '0's after the point are decimals always shown, '#'s decimals shown only
    /// when not zero; an integer part without '0' leaves a lone zero out (".50"). Separators
    /// are those of `locale`. NaN and infinities print as the locale prints them.
    static QString text(double value, const QString& pattern, const QLocale& locale);

    /// A power factor band code as the grid shows it: up to 1 "LAG" and the code, above 1
    /// and below 2 "LEAD" and 2 - code, from 2 to below 3 "LEAD" and -(code - 2), from 3 to
    /// below 4 "LAG" and code - 4 (the negative lagging factor); no word at exactly 0 and 1.
    /// The second range 10 to below 20 holds the same bands shifted by 10. The number is in
    /// "0.000". Outside the bands the code prints as it stands in `fallbackPattern`.
    static QString powerFactorText(double code, const QString& fallbackPattern,
                                   const QLocale& locale);
    /// The same with the fallback pattern taken apart already.
    static QString powerFactorText(double code, const Pattern& fallback);
};

} // namespace lorvane
