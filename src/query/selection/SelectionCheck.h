// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <functional>

namespace lorvane {

class DataPointSelection;
class MeterTable;
class TimeSelection;

/// `validate selection`: whether the selection lets the view of a button run.
class SelectionCheck
{
public:
    struct Result
    {
        bool ok = false;
        /// The messages the user is shown, in order.
        QStringList messages;
    };

    /// Checks the selection for view button `button` (0 to 14): a meter is selected; a range
    /// is defined for any view but the database status; the views of data points (1 and 3)
    /// have some, else `chooseDataPoints` (the data point dialog) runs once; for buttons 1 to
    /// 3 every used meter's files are opened and must hold data points, and any meter without
    /// a fault passes. Never throws.
    static Result validate(int button, const MeterTable& meters, const TimeSelection& time,
                           const DataPointSelection& points,
                           const std::function<void()>& chooseDataPoints);

    /// The fault of one used meter for buttons 1 to 3: empty when it opens and holds data
    /// points, else "Cannot open source data file: {HardwareName}" or "Cannot find data
    /// points in data file: {HardwareName}".
    static QString meterFault(const MeterTable& meters, int meterIndex, int logKind);
};

} // namespace lorvane
