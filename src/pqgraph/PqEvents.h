// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <array>

namespace lorvane {

class LoadProgress;
class SqliteDatabase;

/// One power quality event as the magnitude/duration graph places it.
struct PqEvent
{
    qint64 deviceIndex = 0;
    /// `StartDate/Time` as stored (`YYYY-MM-DD HH:MM:SS`) and `Startms` (milliseconds with a
    /// tenth).
    QString start;
    double startMs = 0;
    /// `Duration` / 1000.
    double durationSeconds = 0;
    /// `PQ%`: percent of the channel's full scale.
    double magnitudePercent = 0;
    qint64 recCounter = 0;
};

/// The events of the six voltage channels, subset 0 to 5 in the order of `channels()`, each
/// in the order of its start: the sequence of events of that channel.
using PqChannelEvents = std::array<QList<PqEvent>, 6>;

/// The voltage channels a PQ record may name, and the reading of their events.
class PqEvents
{
public:
    struct Channel
    {
        const char* name;
        /// `ChannelID` of the PQ records (the channel numbering of the capture settings:
        /// Van 0, Vbn 1, Vcn 2, Vaux 3, currents 4 to 8, Vab 9, Vbc 10, Vca 11).
        int channelId;
    };
    static constexpr int channelCount = 6;
    static const std::array<Channel, channelCount>& channels();

    /// ReadSequenceOfEvents: per voltage channel, the records of `table` (a query's
    /// `PQLog_{Q}_{S}`, which holds the range's rows of every PQ day table of one or two meters)
    /// with that `ChannelID` and a `Duration` above 0, by start time. Vaux and the currents
    /// are no channel of the graph and are left out. `progress` (may be null) hears of each
    /// channel read. Throws StorageError.
    static PqChannelEvents ReadSequenceOfEvents(SqliteDatabase& db, const QString& table,
                                                LoadProgress* progress = nullptr);
    /// Number of events over all channels.
    static qsizetype count(const PqChannelEvents& events);
};

} // namespace lorvane
