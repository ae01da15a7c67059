// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane: the desktop viewer. Exit codes: 0 after the main frame was closed, 1 when the
// dictionary could not be read at start (four beeps, no window), 2 when no display is there.
#include "app/RunContext.h"
#include "app/StartupSequence.h"
#include "app/ui/LorvaneStartupHost.h"

#include <QApplication>
#include <QStringList>
#include <cstdio>

namespace {

constexpr int exitDictionaryFailure = 1;
constexpr int exitNoDisplay = 2;

bool displayAvailable()
{
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ||
           !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// The arguments as one command line text; an argument holding blanks is put in double quotes,
/// which the command parser blanks out again.
QString commandLineText(const QStringList& arguments)
{
    QStringList parts;
    for (const QString& argument : arguments)
        parts << (argument.contains(u' ') ? u'"' + argument + u'"' : argument);
    return parts.join(u' ');
}

} // namespace

int main(int argc, char* argv[])
{
    if (!displayAvailable()) {
        std::fputs("lorvane: no display to open windows on (neither DISPLAY nor WAYLAND_DISPLAY "
                   "is set).\n"
                   "Run it under a virtual display, for example:\n"
                   "  xvfb-run -a lorvane [database.DB]\n",
                   stderr);
        return exitNoDisplay;
    }

    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lorvane"));

    lorvane::RunContext context;
    lorvane::LorvaneStartupHost host;
    lorvane::StartupSequence startup(host, context);
    const QString commandLine = commandLineText(QApplication::arguments().mid(1));
    if (startup.run(commandLine) == lorvane::StartupSequence::Outcome::StoppedByDictionary)
        return exitDictionaryFailure;
    return QApplication::exec();
}
