// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphExport.h"

#include "PGraphTimeText.h"

namespace lorvane {

namespace {

QString field(const QString& text)
{
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')))
        return text;
    QString quoted = text;
    quoted.replace(QStringLiteral("\""), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

} // namespace

QString PGraphExport::csv(const QList<PGraphItem>& items)
{
    QString out = QStringLiteral("Data Name,Device Index,Data ID,Date/Time,ms,Value\n");
    for (const PGraphItem& item : items) {
        const QString head = field(item.name) + QLatin1Char(',') +
                             QString::number(item.deviceIndex) + QLatin1Char(',') +
                             QString::number(item.dataId) + QLatin1Char(',');
        for (const PGraphRecord& record : item.records) {
            const qint64 second = record.time - record.time % 1000;
            out += head + PGraphTimeText::entry(second) + QLatin1Char(',') +
                   QString::number(record.time - second) + QLatin1Char(',') +
                   QString::number(record.value, 'g', 17) + QLatin1Char('\n');
        }
    }
    return out;
}

} // namespace lorvane
