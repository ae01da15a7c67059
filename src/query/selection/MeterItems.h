// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

namespace lorvane {

/// The items of one meter the input, relay and demand views read. An empty list reads every
/// item of its log, as a meter whose items were never chosen does.
struct MeterItems
{
    /// One input or relay: its card (`ModuleIndex`) and its place on the card (`InputIndex`,
    /// `RelayIndex`).
    struct Channel
    {
        qint32 module = 0;
        qint32 index = 0;
        friend bool operator==(const Channel&, const Channel&) = default;
    };

    /// A meter offers at most this many demand items.
    static constexpr int demandCount = 12;

    QList<Channel> inputs;
    QList<Channel> relays;
    /// Data ids of the energy/demand log, at most `demandCount`.
    QList<qint64> demandIds;
};

} // namespace lorvane
