// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestMeters.h"

#include "TestEnvironment.h"

#include <QDir>
#include <gtest/gtest.h>

namespace lorvane::test {

QStringList smallMeterArguments()
{
    return {QStringLiteral("--start"),
            QStringLiteral("2024-03-04"),
            QStringLiteral("--days"),
            QStringLiteral("2"),
            QStringLiteral("--interval-minutes"),
            QStringLiteral("15"),
            QStringLiteral("--points"),
            QStringLiteral("12")};
}

bool simulate(const QStringList& arguments)
{
    const ProcessResult result = runProgram(QStringLiteral("lorvane-sim"), arguments);
    if (result.exitCode == 0)
        return true;
    ADD_FAILURE() << "lorvane-sim " << arguments.join(QLatin1Char(' ')).toStdString()
                  << " failed: " << result.err.toStdString();
    return false;
}

std::unique_ptr<TempQueryDatabase> scratchDatabase(const QTemporaryDir& folder, qint64 processId)
{
    QDir(folder.path()).mkpath(QStringLiteral("scratch"));
    return TempQueryDatabase::create(
        QDir(dataFolder()).filePath(QStringLiteral("Resource/LorvaneTempQuery.DB")),
        folder.filePath(QStringLiteral("scratch")), processId);
}

} // namespace lorvane::test
