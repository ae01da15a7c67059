// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScratchTemplate.h"

#include "platform/Fault.h"
#include "platform/StorageError.h"
#include "store/TempQueryDatabase.h"

#include <QCoreApplication>
#include <QDir>

namespace lorvane::cli {

QString installedTemplate()
{
    return QDir(QCoreApplication::applicationDirPath())
        .filePath(QStringLiteral("../share/lorvane/Resource/LorvaneTempQuery.DB"));
}

std::unique_ptr<TempQueryDatabase> createScratch(const QString& templatePath, const QString& folder)
{
    try {
        return TempQueryDatabase::create(templatePath, folder, QCoreApplication::applicationPid());
    } catch (const StorageError& error) {
        throw Fault(error.kind() == StorageError::Kind::FileMissing ? Fault::Kind::FileMissing
                                                                    : Fault::Kind::Other,
                    TempQueryDatabase::unavailable(templatePath, error),
                    QStringLiteral("TempQueryDatabase"), templatePath);
    }
}

} // namespace lorvane::cli
