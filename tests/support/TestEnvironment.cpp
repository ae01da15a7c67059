// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestEnvironment.h"

#include <QDir>
#include <QProcess>

namespace lorvane::test {

QString programPath(const QString& name)
{
    return QDir(QStringLiteral(LORVANE_BIN_DIR)).filePath(name);
}

QString dataFolder()
{
    return QStringLiteral(LORVANE_DATA_DIR);
}

ProcessResult runProgram(const QString& name, const QStringList& arguments,
                         const QStringList& environment)
{
    QProcess process;
    if (!environment.isEmpty()) {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const QString& entry : environment)
            variables.insert(entry.section(QLatin1Char('='), 0, 0),
                             entry.section(QLatin1Char('='), 1));
        process.setProcessEnvironment(variables);
    }
    process.start(programPath(name), arguments);
    ProcessResult result;
    if (!process.waitForFinished(120000)) {
        process.kill();
        process.waitForFinished();
        result.err = QStringLiteral("did not finish: ") + process.errorString();
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

} // namespace lorvane::test
