// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// What the frame tells the user at load about the default printer.
struct PrinterCheck
{
    /// The message for a system with `printerCount` printers whose default is `name` with the
    /// status text `status`; empty when the default printer is ready.
    static QString message(int printerCount, const QString& name, const QString& status);
};

} // namespace lorvane
