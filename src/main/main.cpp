// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane: the desktop viewer. Exit codes: 0 after the main frame was closed, or after a
// command line was handed to a copy already running; 1 when the dictionary could not be read
// at start (four beeps, no window), 2 when no display is there, 3 when the running copy refused
// the command line (busy with another), 4 when it did not answer.
#include "app/RunContext.h"
#include "app/StartCommand.h"
#include "app/StartupSequence.h"
#include "app/ui/LorvaneStartupHost.h"
#include "app/ui/TalLorvane.h"
#include "platform/SystemFolder.h"
#include "platform/ui/DialogMessages.h"
#include "platform/ui/SingleInstanceChannel.h"

#include <QApplication>
#include <QDir>
#include <QStringList>
#include <cstdio>

namespace {

constexpr int exitHandedOver = 0;
constexpr int exitDictionaryFailure = 1;
constexpr int exitNoDisplay = 2;
constexpr int exitRefused = 3;
constexpr int exitNoAnswer = 4;

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
    lorvane::DialogMessages messages(QStringLiteral("Lorvane"));
    lorvane::installUserMessages(&messages);

    const QString commandLine = commandLineText(QApplication::arguments().mid(1));
    lorvane::SingleInstanceChannel channel(
        lorvane::SingleInstanceChannel::defaultName(lorvane::SystemFolder::path()));
    // A database named while a copy runs is opened there with the whole command line; this
    // copy ends at once.
    const QString request =
        lorvane::StartCommand::handOver(commandLine, QDir::current(), QDate::currentDate());
    if (!request.isEmpty()) {
        using Delivery = lorvane::SingleInstanceChannel::Delivery;
        switch (lorvane::SingleInstanceChannel::send(channel.name(), request)) {
        case Delivery::NoCopy:
            break;
        case Delivery::Accepted:
            return exitHandedOver;
        case Delivery::Refused:
            std::fputs("lorvane: the running copy refused the request: it is busy with another "
                       "one. Nothing was opened; try again when it is done.\n",
                       stderr);
            return exitRefused;
        case Delivery::NoAnswer:
            std::fputs("lorvane: the running copy did not answer the request. Nothing was "
                       "opened.\n",
                       stderr);
            return exitNoAnswer;
        }
    }

    lorvane::RunContext context;
    lorvane::LorvaneStartupHost host;
    lorvane::StartupSequence startup(host, context);
    if (startup.run(commandLine) == lorvane::StartupSequence::Outcome::StoppedByDictionary)
        return exitDictionaryFailure;
    // The first copy serves the later ones; a further copy without a file runs on its own.
    if (channel.listen())
        host.mainFrame()->attachChannel(channel);
    const int code = QApplication::exec();
    lorvane::installUserMessages(nullptr);
    return code;
}
