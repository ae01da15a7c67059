// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>

namespace lorvane {

/// The meter's own verdict on one criterion, as the `S_...` columns of a test row hold it,
/// and how the test list shows it.
class PqTestStatus
{
public:
    enum class Code
    {
        NotApplicable, ///< -1
        Failed,        ///< 0
        Passed,        ///< 1
        Concern,       ///< 2
        Unknown,       ///< any other value, NULL included
    };

    /// Background of a status cell. `PlatformGrayText` is the system's colour for greyed
    /// text, which the window asks the platform for.
    enum class Shade
    {
        None,
        Red,
        Green,
        Grey, ///< 0x808080
        PlatformGrayText,
    };

    static Code of(const QVariant& stored);
    /// "N/A", "Failed", "Passed", "Concern", "Unknown".
    static QString text(Code code);
    static Shade shade(Code code);
    /// Only "Unknown" is written in white, on its dark background.
    static bool whiteText(Code code) { return code == Code::Unknown; }
};

} // namespace lorvane
