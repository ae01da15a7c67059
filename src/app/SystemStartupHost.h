// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StartupHost.h"
#include "platform/RegistryAccess.h"

namespace lorvane {

/// The operating system's side of start-up: the process id, the system folder, the registry
/// counterpart and a real wait. Sound and windows are left to the window layer.
class SystemStartupHost : public StartupHost
{
public:
    qint64 processId() const override;
    QString systemFolder() const override;
    QString registryString(const QString& keyPath, const QString& valueName) const override;
    QString userSetting(const QString& application, const QString& section, const QString& key,
                        const QString& defaultValue) const override;
    void wait(int milliseconds) override;

private:
    RegistryAccess m_registry;
};

} // namespace lorvane
