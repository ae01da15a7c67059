// SPDX-License-Identifier: GPL-3.0-or-later
#include "DateTimeText.h"

#include "platform/TextUtil.h"

#include <QList>

namespace lorvane {

namespace {

/// One piece of a Qt date-time format: a field (a run of one pattern letter, or an AM/PM
/// marker "AP"/"ap"/"A"/"a") or literal text (quoted or not).
struct FormatToken
{
    QString text;
    QChar field; ///< the pattern letter; null for literal text
};

bool isPatternLetter(QChar c)
{
    return QStringLiteral("dMyhHmszapAPt").contains(c);
}

QList<FormatToken> tokenize(const QString& format)
{
    QList<FormatToken> tokens;
    qsizetype i = 0;
    while (i < format.size()) {
        const QChar c = format.at(i);
        qsizetype end = i + 1;
        if (c == u'\'') {
            // A quoted literal runs to the next lone quote; '' inside it is a quote.
            while (end < format.size()) {
                if (format.at(end) == u'\'' &&
                    (end + 1 >= format.size() || format.at(end + 1) != u'\''))
                    break;
                end += format.at(end) == u'\'' ? 2 : 1;
            }
            end = qMin(end + 1, format.size());
            tokens.append({format.mid(i, end - i), QChar()});
        } else if (c == u'a' || c == u'A') {
            if (end < format.size() && (format.at(end) == u'p' || format.at(end) == u'P'))
                ++end;
            tokens.append({format.mid(i, end - i), QChar(u'A')});
        } else if (isPatternLetter(c)) {
            while (end < format.size() && format.at(end) == c)
                ++end;
            tokens.append({format.mid(i, end - i), c});
        } else {
            tokens.append({QString(c), QChar()});
        }
        i = end;
    }
    return tokens;
}

bool isBlank(const FormatToken& token)
{
    return token.field.isNull() && token.text.trimmed().isEmpty();
}

/// Removes every field of `letter` together with one blank that separates it from the rest.
QList<FormatToken> withoutField(QList<FormatToken> tokens, QChar letter)
{
    for (qsizetype i = 0; i < tokens.size();) {
        if (tokens.at(i).field != letter) {
            ++i;
            continue;
        }
        tokens.removeAt(i);
        if (i > 0 && isBlank(tokens.at(i - 1)))
            tokens.removeAt(--i);
        else if (i < tokens.size() && isBlank(tokens.at(i)))
            tokens.removeAt(i);
    }
    return tokens;
}

QString joined(const QList<FormatToken>& tokens)
{
    QString text;
    for (const FormatToken& token : tokens)
        text += token.text;
    return text.trimmed();
}

/// The tokens before the first seconds field, without the separators that led up to it.
QList<FormatToken> upToMinutes(const QList<FormatToken>& tokens)
{
    qsizetype seconds = 0;
    while (seconds < tokens.size() && tokens.at(seconds).field != u's')
        ++seconds;
    if (seconds == tokens.size())
        return tokens;
    QList<FormatToken> kept = tokens.mid(0, seconds);
    while (!kept.isEmpty() && kept.last().field.isNull() && kept.last().text.size() == 1 &&
           (kept.last().text.at(0).isSpace() || kept.last().text.at(0).isPunct()))
        kept.removeLast();
    return kept;
}

/// The time tokens with each AM/PM marker replaced by `marker` as a literal text.
QString withMarker(const QList<FormatToken>& tokens, const QString& marker)
{
    QList<FormatToken> replaced = tokens;
    for (FormatToken& token : replaced) {
        if (token.field == u'A')
            token = {marker, QChar()};
    }
    return joined(replaced);
}

} // namespace

DateTimeText::DateTimeText(const QLocale& locale)
    : m_locale(locale), m_shortDate(TextUtil::trimZero(locale.dateFormat(QLocale::ShortFormat)))
{
    // A stamp has no zone: the zone field of the locale's long time format would print this
    // machine's zone beside a meter's local time.
    const QList<FormatToken> time =
        withoutField(tokenize(TextUtil::trimZero(locale.timeFormat(QLocale::LongFormat))), u't');
    m_time = joined(time);
    const QList<FormatToken> clock = withoutField(time, u'A');
    m_twelveHour = clock.size() != time.size();
    m_clock = joined(clock);
    m_minutes = joined(upToMinutes(clock));
    m_statementTime = withMarker(time, QStringLiteral("AM/PM"));
}

QString DateTimeText::amPmSuffix() const
{
    return m_twelveHour ? QStringLiteral(" AMPM") : QString();
}

QString DateTimeText::dateTimeText(const QDateTime& clock) const
{
    if (!clock.isValid())
        return {};
    return m_locale.toString(clock, dateTimeFormat());
}

QString DateTimeText::statementText(const QDateTime& clock) const
{
    if (!clock.isValid())
        return {};
    // The time goes through the C locale, whose markers are "AM" and "PM": the marker must stay
    // a marker (a literal in its place would turn a 12-hour "h" into a 24-hour one).
    return m_locale.toString(clock, m_shortDate) + u' ' + QLocale::c().toString(clock, m_time);
}

} // namespace lorvane
