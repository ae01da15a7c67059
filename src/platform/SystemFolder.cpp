// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemFolder.h"

#include <QCoreApplication>
#include <QDir>

namespace lorvane {

QString SystemFolder::path()
{
    const QString overridden = qEnvironmentVariable(environmentName);
    if (!overridden.isEmpty())
        return QDir::cleanPath(overridden);
    if (QCoreApplication::instance())
        return QCoreApplication::applicationDirPath();
    return QDir::currentPath();
}

} // namespace lorvane
