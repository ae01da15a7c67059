// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphTimeText.h"

#include "PGraphView.h"
#include "platform/UserText.h"

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>

namespace lorvane {

namespace {

QDateTime reading(qint64 time)
{
    return QDateTime::fromMSecsSinceEpoch(time, QTimeZone::utc());
}

QString format(qint64 time, const char* pattern)
{
    return QLocale::c().toString(reading(time), QString::fromLatin1(pattern));
}

} // namespace

QString PGraphTimeText::clock(qint64 time)
{
    return format(time, "HH:mm:ss");
}

QString PGraphTimeText::monthDay(qint64 time)
{
    return format(time, "MM/dd");
}

QString PGraphTimeText::date(qint64 time)
{
    return format(time, "MMM dd, yyyy");
}

QString PGraphTimeText::period(const PGraphView& view)
{
    return date(view.start) + QLatin1Char(' ') + userText("801001", "to") + QLatin1Char(' ') +
           date(view.end());
}

QString PGraphTimeText::entry(qint64 time)
{
    return format(time, "MM/dd/yyyy HH:mm:ss");
}

std::optional<qint64> PGraphTimeText::parseEntry(const QString& text)
{
    const QString trimmed = text.simplified();
    for (const char* pattern : {"MM/dd/yyyy HH:mm:ss", "M/d/yyyy H:mm:ss", "MM/dd/yyyy", "M/d/yyyy",
                                "yyyy-MM-dd HH:mm:ss", "yyyy-MM-dd"}) {
        QDateTime parsed = QLocale::c().toDateTime(trimmed, QString::fromLatin1(pattern));
        if (parsed.isValid()) {
            parsed.setTimeZone(QTimeZone::utc());
            return parsed.toMSecsSinceEpoch();
        }
    }
    return std::nullopt;
}

} // namespace lorvane
