// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane {

/// How one log kind's grid is read: the position of the sort item in the kind's list (0 is
/// always "Date/Time"), the direction, and for snapshots and demand the record type shown
/// (0 "All Snapshots").
struct SortState
{
    int item = 0;
    bool descending = false;
    int recordType = 0;
};

} // namespace lorvane
