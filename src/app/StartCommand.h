// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CommandLine.h"

#include <QDir>
#include <QString>

namespace lorvane {

class DataPointSelection;
class TimeSelection;
class TopQueryBuffer;

/// What the viewer does with its own command line or with a request of a later copy or a
/// sibling program: open a database as meter 1, then set the time range and the channels of
/// the selection and press the view button that the command names. The window opens the file
/// (its messages are the selection window's) and presses the button; the rest is here.
class StartCommand
{
public:
    /// The program's own command line.
    static StartCommand fromCommandLine(const QString& text, const QDate& today);
    /// A request of the channel: "OPENLOG {path}" only opens its database; "COMMANDLINE
    /// {text}" is a whole command line. Any other text asks for nothing.
    static StartCommand fromRequest(const QString& text, const QDate& today);
    /// The request a later copy started with command line `text` hands to the running copy:
    /// the whole line, its database path made absolute against `folder`. Empty when the line
    /// names no database (the copy then runs on its own).
    static QString handOver(const QString& text, const QDir& folder, const QDate& today);

    /// The database to open as meter 1; empty when there is nothing to do.
    const QString& path() const { return m_command.path; }
    /// Once meter 1 is open: sets the range "Between" the two record times when a time was
    /// given, and the numeric channels (at most 128) as the data points, clearing the last
    /// queries. Returns the view button to press, -1 for none.
    int applyToSelection(TimeSelection& time, DataPointSelection& points,
                         TopQueryBuffer& buffer) const;

private:
    CommandLine m_command;
};

} // namespace lorvane
