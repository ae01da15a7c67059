// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemStartupHost.h"

#include "platform/SystemFolder.h"

#include <QCoreApplication>
#include <QThread>
#include <algorithm>

namespace lorvane {

qint64 SystemStartupHost::processId() const
{
    return QCoreApplication::applicationPid();
}

QString SystemStartupHost::systemFolder() const
{
    return SystemFolder::path();
}

QString SystemStartupHost::registryString(const QString& keyPath, const QString& valueName) const
{
    return m_registry.readString(keyPath, valueName);
}

QString SystemStartupHost::userSetting(const QString& application, const QString& section,
                                       const QString& key, const QString& defaultValue) const
{
    return m_registry.readUserSetting(application, section, key, defaultValue);
}

void SystemStartupHost::wait(int milliseconds)
{
    QThread::msleep(static_cast<unsigned long>(std::max(milliseconds, 0)));
}

} // namespace lorvane
