// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The folder the installation's shared files lie in (the paths file and the dictionary):
/// the environment variable `LORVANE_SYSTEM_DIR` when it is set and not empty, otherwise the
/// folder of the running executable (the build tree's bin/, or the installed bin/).
class SystemFolder
{
public:
    static constexpr const char* environmentName = "LORVANE_SYSTEM_DIR";

    /// The folder without a trailing separator; the current folder when no QCoreApplication
    /// exists and the variable is not set.
    static QString path();
};

} // namespace lorvane
