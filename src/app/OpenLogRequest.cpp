// SPDX-License-Identifier: GPL-3.0-or-later
#include "OpenLogRequest.h"

namespace lorvane {

namespace {
const QString openLogVerb = QStringLiteral("OPENLOG");
const QString commandLineVerb = QStringLiteral("COMMANDLINE");
} // namespace

OpenLogRequest OpenLogRequest::parse(const QString& command)
{
    OpenLogRequest request;
    const qsizetype blank = command.indexOf(u' ');
    request.verb = (blank < 0 ? command : command.left(blank)).toUpper();
    // The rest starts at the blank itself; the path is the rest without that first character.
    const QString rest = blank < 0 ? QString() : command.mid(blank).mid(1);
    if (request.verb == openLogVerb)
        request.path = rest;
    else if (request.verb == commandLineVerb)
        request.commandLine = rest;
    return request;
}

QString OpenLogRequest::command(const QString& path)
{
    return openLogVerb + u' ' + path;
}

QString OpenLogRequest::commandLineRequest(const QString& commandLine)
{
    return commandLineVerb + u' ' + commandLine;
}

} // namespace lorvane
