// SPDX-License-Identifier: GPL-3.0-or-later
#include "PrinterCheck.h"

#include "platform/UserText.h"

namespace lorvane {

namespace {

// The second line names where this platform adds a printer: the system's own menu on Windows,
// the printing service's settings everywhere else.
QString addPrinterHint()
{
#ifdef Q_OS_WIN
    return userText("309011", "(Start -> Settings -> Printers -> Add Printer)");
#else
    return userText("309013", "(Printing service settings -> Printers -> Add Printer)");
#endif
}

} // namespace

QString PrinterCheck::message(int printerCount, const QString& name, const QString& status)
{
    if (printerCount <= 0)
        return userText("309010", "Please add a default printer to your system.") + u'\n' +
               addPrinterHint();
    if (status.contains(QStringLiteral("Ready"), Qt::CaseInsensitive))
        return {};
    return userText("309012", "Problem with your default printer, it may not be ready") + u'\n' +
           name;
}

} // namespace lorvane
