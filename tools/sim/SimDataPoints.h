// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QtGlobal>

namespace lorvane::sim {

/// The data point id plan that the simulator shares with the dictionary.
class SimDataPoints
{
public:
    /// The snapshot points in plan order: voltages, currents, powers, power factors,
    /// frequency, THD, billing registers, energy, demand, flicker (50 ids).
    static const QList<qint32>& snapshotPlan();
    /// The first `count` points of the plan; `count` is clamped to 1..50.
    static QList<qint32> snapshotPoints(int count);
    /// kW, kvar, kVA and phase current demands (26201 to 26206).
    static const QList<qint32>& demandIds();
    /// Pst and Plt of the three phases (27401 to 27406).
    static const QList<qint32>& flickerIds();
    /// The EN 50160 compliance statistics 30001 to 30082.
    static QList<qint32> complianceIds();
    /// Power factor points, logged in the band code form.
    static bool isPowerFactor(qint32 id) { return id >= 21401 && id <= 21404; }
};

} // namespace lorvane::sim
