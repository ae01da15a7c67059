// SPDX-License-Identifier: GPL-3.0-or-later
#include "PrinterCheck.h"

#include "platform/UserText.h"

namespace lorvane {

QString PrinterCheck::message(int printerCount, const QString& name, const QString& status)
{
    if (printerCount <= 0)
        return userText("309010", "Please add a default printer to your system.") + u'\n' +
               userText("309011", "(Start -> Settings -> Printers -> Add Printer)");
    if (status.contains(QStringLiteral("Ready"), Qt::CaseInsensitive))
        return {};
    return userText("309012", "Problem with your default printer, it may not be ready") + u'\n' +
           name;
}

} // namespace lorvane
