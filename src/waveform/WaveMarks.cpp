// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveMarks.h"

#include "platform/UserText.h"

#include <cmath>

namespace lorvane {

void WaveMarks::set(int number, double x)
{
    if (number == 1)
        m_mark1 = x;
    else if (number == 2)
        m_mark2 = x;
}

void WaveMarks::clear()
{
    m_mark1.reset();
    m_mark2.reset();
}

bool WaveMarks::isSet(int number) const
{
    return position(number).has_value();
}

std::optional<double> WaveMarks::position(int number) const
{
    if (number == 1)
        return m_mark1;
    if (number == 2)
        return m_mark2;
    return std::nullopt;
}

std::optional<double> WaveMarks::duration() const
{
    if (!bothSet())
        return std::nullopt;
    return std::abs(*m_mark2 - *m_mark1);
}

QString WaveMarks::durationText() const
{
    const std::optional<double> span = duration();
    if (!span)
        return QString();
    return userText("503100", "Duration") + QStringLiteral(" = ") + QString::number(*span, 'f', 2) +
           QStringLiteral("ms");
}

WaveMarks::Annotation WaveMarks::decode(double x, const QString& coded)
{
    if (coded.size() >= 2 && coded.at(0) == u'|')
        return {x, coded.at(1), coded.mid(2)};
    return {x, QChar(), coded};
}

QList<WaveMarks::Annotation> WaveMarks::annotations() const
{
    QList<Annotation> out;
    const QString mark = userText("503101", "Mark ");
    if (m_mark1)
        out << decode(*m_mark1, QStringLiteral("|H") + mark + u'1');
    if (m_mark2)
        out << decode(*m_mark2, QStringLiteral("|H") + mark + u'2');
    if (bothSet()) {
        const double earlier = std::min(*m_mark1, *m_mark2);
        const double later = std::max(*m_mark1, *m_mark2);
        out << decode(earlier, QStringLiteral("|l <<"));
        out << decode(later, QStringLiteral("|r>> "));
        out << decode((earlier + later) / 2, QStringLiteral("|l     ") + durationText());
    }
    return out;
}

} // namespace lorvane
