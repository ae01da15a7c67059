// SPDX-License-Identifier: GPL-3.0-or-later
#include "TemporaryInstallation.h"
#include "support/TestEnvironment.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <gtest/gtest.h>

using lorvane::test::TemporaryInstallation;

namespace {

struct ProgramRun
{
    bool finished = false;
    int exitCode = -1;
    QString err;
    qint64 milliseconds = 0;
};

ProgramRun runLorvane(const QProcessEnvironment& environment, const QString& folder,
                      const QStringList& arguments = {})
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    QElapsedTimer timer;
    timer.start();
    process.start(lorvane::test::programPath("lorvane"), arguments);
    ProgramRun run;
    run.finished = process.waitForFinished(30000);
    run.milliseconds = timer.elapsed();
    if (!run.finished) {
        process.kill();
        process.waitForFinished();
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

QProcessEnvironment isolatedEnvironment(const TemporaryInstallation& installation)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LORVANE_SYSTEM_DIR", installation.systemFolder());
    environment.insert("XDG_CONFIG_HOME", installation.root() + "/config");
    environment.insert("XDG_CONFIG_DIRS", installation.root() + "/config-system");
    environment.insert("XDG_DATA_HOME", installation.root() + "/data-home");
    environment.remove("LORVANE_REG_SOFTWARE_INI_PATH");
    return environment;
}

} // namespace

TEST(LorvaneProgram, DamagedDictionaryEndsWithoutAWindow)
{
    TemporaryInstallation installation(TemporaryInstallation::Dictionary::Damaged);
    installation.writePathsFile();
    QProcessEnvironment environment = isolatedEnvironment(installation);
    environment.insert("QT_QPA_PLATFORM", "offscreen");

    const ProgramRun run = runLorvane(environment, installation.root(), {"/data/Meter1.DB"});
    ASSERT_TRUE(run.finished) << "lorvane did not end by itself";
    EXPECT_EQ(run.exitCode, 1) << run.err.toStdString();
    // The three waits between the beeps add up to 1.1 s.
    EXPECT_GE(run.milliseconds, 1100);
    EXPECT_FALSE(run.err.contains("lorvane:")) << run.err.toStdString();
}

TEST(LorvaneProgram, WithoutADisplaySaysHowToRunIt)
{
    TemporaryInstallation installation;
    installation.writePathsFile();
    QProcessEnvironment environment = isolatedEnvironment(installation);
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(name);

    const ProgramRun run = runLorvane(environment, installation.root());
    ASSERT_TRUE(run.finished);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.err.contains("no display")) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains("xvfb-run -a lorvane")) << run.err.toStdString();
    // Nothing of the run was started: no scratch file was made.
    EXPECT_TRUE(installation.scratchFiles().isEmpty());
}
