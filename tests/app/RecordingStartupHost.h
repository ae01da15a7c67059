// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/RunContext.h"
#include "app/StartupHost.h"

#include <QMap>
#include <QStringList>
#include <functional>

namespace lorvane::test {

/// A start-up host that answers from fixed values and writes down every call, so a test can
/// check the order of start-up and what the user would have heard.
class RecordingStartupHost : public StartupHost
{
public:
    qint64 pid = 4242;
    QString system;
    QMap<QString, QString> registry; ///< "{key path}|{value name}" -> value
    mutable QStringList calls;
    /// Runs inside loadMainFrame, to look at the context as the frame would see it.
    std::function<void(RunContext&)> onLoadMainFrame;

    qint64 processId() const override
    {
        calls << QStringLiteral("processId");
        return pid;
    }
    QString systemFolder() const override
    {
        calls << QStringLiteral("systemFolder");
        return system;
    }
    QString registryString(const QString& keyPath, const QString& valueName) const override
    {
        calls << QStringLiteral("registry ") + valueName;
        return registry.value(keyPath + u'|' + valueName);
    }
    QString userSetting(const QString&, const QString&, const QString& key,
                        const QString& defaultValue) const override
    {
        calls << QStringLiteral("userSetting ") + key;
        return defaultValue;
    }
    void beep() override { calls << QStringLiteral("beep"); }
    void wait(int milliseconds) override { calls << QStringLiteral("wait %1").arg(milliseconds); }
    void loadMainFrame(RunContext& context) override
    {
        calls << QStringLiteral("loadMainFrame");
        if (onLoadMainFrame)
            onLoadMainFrame(context);
    }
    void showSelectionWindow() override { calls << QStringLiteral("showSelectionWindow"); }
};

} // namespace lorvane::test
