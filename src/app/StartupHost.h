// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

struct RunContext;

/// What start-up asks of the operating system and of the windows. The program answers with
/// the real services and windows; tests answer with recorders and temporary folders.
class StartupHost
{
public:
    virtual ~StartupHost() = default;

    /// Id of this process.
    virtual qint64 processId() const = 0;
    /// The installation's system folder, without a trailing separator.
    virtual QString systemFolder() const = 0;
    /// A registry string value by full key path and value name; empty when there is none.
    virtual QString registryString(const QString& keyPath, const QString& valueName) const = 0;
    /// One of the user's application settings, `defaultValue` when there is none.
    virtual QString userSetting(const QString& application, const QString& section,
                                const QString& key, const QString& defaultValue) const = 0;
    /// One short warning sound.
    virtual void beep() = 0;
    /// Blocks for `milliseconds`.
    virtual void wait(int milliseconds) = 0;
    /// Loads the main frame over the filled run context (the frame keeps the reference).
    virtual void loadMainFrame(RunContext& context) = 0;
    /// Shows the selection window inside the main frame.
    virtual void showSelectionWindow() = 0;
};

} // namespace lorvane
