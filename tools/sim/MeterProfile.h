// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SimLog.h"

#include <QList>
#include <QString>
#include <optional>

namespace lorvane::sim {

/// The kinds of meter the simulator writes.
enum class MeterKind
{
    Standard,
    Talmo,
    Recorder,
    Basic,
    Split
};

/// What a kind of meter is and holds: device type, the logs it keeps, its billing and
/// demand points, and the supply it measures. The log sets follow the view rules of each
/// device type, so a viewer enables exactly the views a real meter of that type offers.
class MeterProfile
{
public:
    explicit MeterProfile(MeterKind kind);

    /// "standard", "talmo", "recorder", "basic" or "split"; nothing for any other word.
    static std::optional<MeterKind> parse(const QString& word);

    MeterKind kind() const { return m_kind; }
    /// `DeviceTypeID`: 3, 0, 4, 6 or 5.
    int deviceTypeId() const;
    /// The device type's name as the dictionary spells it ("Halyx 3" ...).
    QString deviceTypeName() const;
    /// The logs written, in log number order.
    QList<SimLog> logs() const;
    bool holds(SimLog log) const { return logs().contains(log); }
    /// Data ids that the billing module looks for (may be empty).
    QList<qint32> billingIds() const;
    /// Registers and demands of the 15-minute energy and demand log.
    QList<qint32> demandPoints() const;
    /// Whether the file carries the EN 50160 compliance points and test rows.
    bool compliance() const;
    /// `KGate` of `DeviceInformation`.
    int kGate() const;
    /// Nominal phase voltage (volts) and frequency (Hz) of the supply it measures.
    double nominalVoltage() const;
    double nominalFrequency() const;

private:
    MeterKind m_kind;
};

} // namespace lorvane::sim
