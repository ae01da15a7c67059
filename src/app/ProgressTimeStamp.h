// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The time stamp ahead of a progress message: the time since the operation began.
struct ProgressTimeStamp
{
    /// "(mm:ss:mmm) " for `elapsedMs` milliseconds; minutes are not wrapped at an hour.
    static QString text(qint64 elapsedMs);
};

} // namespace lorvane
