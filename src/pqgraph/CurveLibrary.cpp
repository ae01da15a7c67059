// SPDX-License-Identifier: GPL-3.0-or-later
#include "CurveLibrary.h"

#include <QDir>

namespace lorvane {

QList<CurveLibrary::Entry> CurveLibrary::files(const QString& folder)
{
    QList<Entry> out;
    const QFileInfoList found =
        QDir(folder).entryInfoList({QStringLiteral("*.ini"), QStringLiteral("*.INI")},
                                   QDir::Files | QDir::Readable, QDir::Name | QDir::IgnoreCase);
    for (const QFileInfo& file : found)
        out.append({file.completeBaseName(), file.absoluteFilePath()});
    return out;
}

} // namespace lorvane
