// SPDX-License-Identifier: GPL-3.0-or-later
#include "InstalledTemplate.h"

#include <QCoreApplication>
#include <QDir>

namespace lorvane::cli {

QString installedTemplate()
{
    return QDir(QCoreApplication::applicationDirPath())
        .filePath(QStringLiteral("../share/lorvane/Resource/LorvaneTempQuery.DB"));
}

} // namespace lorvane::cli
