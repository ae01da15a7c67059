// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqEvents.h"

#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"

namespace lorvane {

const std::array<PqEvents::Channel, PqEvents::channelCount>& PqEvents::channels()
{
    static const std::array<Channel, channelCount> list{
        {{"Van", 0}, {"Vbn", 1}, {"Vcn", 2}, {"Vab", 9}, {"Vbc", 10}, {"Vca", 11}}};
    return list;
}

PqChannelEvents PqEvents::ReadSequenceOfEvents(SqliteDatabase& db, const QString& table,
                                               LoadProgress* progress)
{
    PqChannelEvents events;
    SqlStatement select = db.prepare(
        QStringLiteral("SELECT [DeviceIndex], [StartDate/Time], [Startms], [Duration], [PQ%], "
                       "[RecCounter] FROM %1 WHERE [ChannelID] = ? AND [Duration] > 0 "
                       "ORDER BY [StartDate/Time] ASC, [Startms] ASC")
            .arg(SqlIdentifier::quote(table)));
    for (int c = 0; c < channelCount; ++c) {
        if (progress) {
            if (progress->cancelRequested())
                break;
            progress->advance(c, channelCount);
        }
        select.reset();
        select.bind(1, qint64(channels()[c].channelId));
        QList<PqEvent>& list = events[c];
        while (select.next()) {
            list.append({select.integer(0), select.text(1), select.real(2), select.real(3) / 1000.0,
                         select.real(4), select.integer(5)});
        }
    }
    return events;
}

qsizetype PqEvents::count(const PqChannelEvents& events)
{
    qsizetype n = 0;
    for (const QList<PqEvent>& list : events)
        n += list.size();
    return n;
}

} // namespace lorvane
