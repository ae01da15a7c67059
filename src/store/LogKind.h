// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane {

/// Number of a log or view; also the query type and the index into the log inventory, which
/// adds Billing (12) and Compliance (13).
enum class LogKind : int
{
    DatabaseStatus = 0,
    DeviceInformation = 1,
    AllLogs = 2,
    Snapshots = 3,
    Demand = 4,
    Limits = 5,
    Inputs = 6,
    Relays = 7,
    Flicker = 8,
    Waveform = 9,
    PowerQuality = 10,
    SystemEvent = 11,
    Billing = 12,
    Compliance = 13,
    EN50160 = 76,
};

inline constexpr int logAvailableCount = 14;

} // namespace lorvane
