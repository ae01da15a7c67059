// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

namespace lorvane {

class LoadProgress;

/// One voltage event of a test period, as the event pages list it.
struct VoltageEvent
{
    enum class Type
    {
        VOD, ///< over-deviation: `[PQ%]` above 1
        SIV, ///< short interruption: `[PQ%]` below 1, 1 to 180 000 ms
        LIV, ///< long interruption: `[PQ%]` below 1, longer than 180 000 ms
    };
    Type type = Type::VOD;
    QString channel;
    /// The stored start and end stamps of the PQ record.
    QString start;
    QString end;
    double minValue = 0;
    double minPercent = 0;

    /// "VOD", "SIV", "LIV".
    static QString typeKey(Type type);
};

/// The voltage events of a test period from the meter's PQ log. Only records of condition 2
/// on the six voltage channels (Van, Vbn, Vcn, Vab, Vbc, Vca) count. `[PQ%]` exactly 1 is in
/// no class, and a duration of exactly 180 000 ms is still a short interruption. Every day
/// whose day row lies inside the period is read whole.
class VoltageEvents
{
public:
    static constexpr double shortInterruptionMs = 180000;

    /// Reads the PQ log of `pqLogFile` (read-only) for [start, end], events in start order per
    /// day table. A file without a PQ log has no events. Throws Fault when the file or a day
    /// table cannot be read.
    static QList<VoltageEvent> read(const QString& pqLogFile, const QDateTime& start,
                                    const QDateTime& end, LoadProgress& progress);

    /// How many events of a type the list holds.
    static int count(const QList<VoltageEvent>& events, VoltageEvent::Type type);
};

} // namespace lorvane
