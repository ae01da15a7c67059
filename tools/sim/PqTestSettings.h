// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane::sim {

/// The two EN 50160 test settings a meter holds beside its counts (`P_Freq`, `P_FVF`). They
/// choose which frequency rule applies and how many rapid voltage changes a day are allowed,
/// so the same supply can pass or fail by the meter's settings alone.
struct PqTestSettings
{
    /// 1: supply synchronously connected to an interconnected system (bins 4 and 5 must hold
    /// 95 %); 0: an island supply (bins 3 to 6, with 1 and 8 empty).
    int frequencyParameter = 1;
    /// Rapid voltage changes allowed per day; 0 for none, which leaves only the first test.
    int fastVoltageAllowance = 0;
};

} // namespace lorvane::sim
