// SPDX-License-Identifier: GPL-3.0-or-later
#include "StartCommand.h"

#include "OpenLogRequest.h"
#include "query/selection/DataPointSelection.h"
#include "query/selection/TimeSelection.h"
#include "query/selection/TopQueryBuffer.h"

namespace lorvane {

StartCommand StartCommand::fromCommandLine(const QString& text, const QDate& today)
{
    StartCommand command;
    command.m_command = CommandLine::parse(text, today);
    return command;
}

StartCommand StartCommand::fromRequest(const QString& text, const QDate& today)
{
    const OpenLogRequest request = OpenLogRequest::parse(text);
    if (!request.commandLine.isEmpty())
        return fromCommandLine(request.commandLine, today);
    // An OPENLOG path is taken as it is: blanks and quotes belong to it.
    StartCommand command;
    command.m_command.path = request.path;
    return command;
}

QString StartCommand::handOver(const QString& text, const QDir& folder, const QDate& today)
{
    CommandLine command = CommandLine::parse(text, today);
    if (command.path.isEmpty())
        return {};
    command.path = folder.absoluteFilePath(command.path);
    return OpenLogRequest::commandLineRequest(command.text());
}

int StartCommand::applyToSelection(TimeSelection& time, DataPointSelection& points,
                                   TopQueryBuffer& buffer) const
{
    if (m_command.timeGiven)
        time.acceptBetween(m_command.firstRecordTime, m_command.lastRecordTime, buffer);
    const QList<qint32> channels = m_command.channelIds();
    if (!channels.isEmpty()) {
        points.setIds(channels);
        buffer.ClearTopQueryBuffer(true);
    }
    return CommandLine::viewButton(m_command.logId);
}

} // namespace lorvane
