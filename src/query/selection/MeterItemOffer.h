// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MeterItems.h"
#include "query/engine/LogFileEntry.h"

#include <QList>
#include <QString>

namespace lorvane {

/// What one open meter offers to choose for the input, relay and demand views: the inputs and
/// relays its settings tables name and the data ids its energy/demand log holds. The choice
/// itself is a `MeterItems`, handed to `SelectionSession::setMeterItems`.
struct MeterItemOffer
{
    /// One input or relay: its place and the names the meter gives its card and itself.
    struct Channel
    {
        MeterItems::Channel place;
        QString moduleLabel;
        QString label;
    };

    QList<Channel> inputs;
    QList<Channel> relays;
    /// Ascending, each once.
    QList<qint64> demandIds;

    /// Reads the offer of the meter `meter` stands for: every log file of a split-log meter,
    /// the file itself otherwise. Inputs from `InputLogDataItem`, relays from
    /// `RelayLogDataItem` (each place once, in card and place order, the labels of its first
    /// settings row), demand ids from the first hour table of the energy/demand log's first
    /// day that has one. A file, table or column that is not there offers nothing and is no
    /// error: the meter's other files still offer theirs.
    static MeterItemOffer read(const LogFileEntry& meter);

    /// Which offered items a choice reads, in offer order; an empty list of the choice reads
    /// every item, so all are ticked.
    struct Ticks
    {
        QList<bool> inputs;
        QList<bool> relays;
        QList<bool> demand;
    };
    Ticks ticksOf(const MeterItems& choice) const;
    /// The choice the ticks make. A list with every item ticked, or none, reads every item
    /// of its log (an empty list), so that items the meter adds later are read as well.
    MeterItems choose(const Ticks& ticks) const;
};

} // namespace lorvane
