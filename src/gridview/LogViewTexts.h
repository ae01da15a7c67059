// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/LogKind.h"

#include <QString>
#include <QStringList>

namespace lorvane {

/// The fixed texts of a log view kind: its grid captions, its name, the window title and the
/// help topic.
struct LogViewTexts
{
    /// The captions of the grids of `kind` ("Show Snapshots", "Show Inputs" ...).
    static QStringList captions(LogKind kind);
    /// The view's name in the title ("Snapshots", "Database Status" ...).
    static QString viewName(LogKind kind);
    /// "{program} - [{view name}]".
    static QString windowTitle(const QString& program, LogKind kind);
    /// The help topic of `kind` ("LRHistTrends" ...).
    static QString helpTopic(LogKind kind);
};

} // namespace lorvane
