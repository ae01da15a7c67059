// SPDX-License-Identifier: GPL-3.0-or-later
#include "../RecordingStartupHost.h"
#include "../ScopedEnvironment.h"
#include "../TemporaryInstallation.h"
#include "app/StartupSequence.h"
#include "app/ui/AllLogsFrm.h"
#include "app/ui/LorvaneStartupHost.h"
#include "app/ui/TalLorvane.h"
#include "store/TempQueryDatabase.h"
#include "support/ui/Screenshot.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStatusBar>
#include <gtest/gtest.h>

using lorvane::RunContext;
using lorvane::StartupSequence;
using lorvane::test::ScopedEnvironment;
using lorvane::test::TemporaryInstallation;

TEST(MainFrame, LoadsCleansUpShowsSelectionAndRemovesScratchOnClose)
{
    TemporaryInstallation installation;
    installation.writePathsFile();
    // A file left behind by a crashed run.
    const QString stale =
        installation.scratchFolder() + "/tempqueryfile_2024_1_2_3_4_5_PID_999999.TempQuery";
    TemporaryInstallation::writeText(stale, "left over");

    ScopedEnvironment env;
    env.set("LORVANE_SYSTEM_DIR", installation.systemFolder());
    env.set("XDG_CONFIG_HOME", installation.root() + "/config");
    env.set("XDG_CONFIG_DIRS", installation.root() + "/config-system");
    env.unset("LORVANE_REG_SOFTWARE_INI_PATH");

    RunContext context;
    lorvane::LorvaneStartupHost host;
    ASSERT_EQ(StartupSequence(host, context).run(installation.root() + "/Meter1.DB"),
              StartupSequence::Outcome::Running);
    lorvane::TalLorvane* frame = host.mainFrame();
    ASSERT_NE(frame, nullptr);
    ASSERT_TRUE(context.scratch);
    const QString scratchFile = context.scratch->path();

    EXPECT_FALSE(QFileInfo::exists(stale));
    EXPECT_EQ(frame->removedScratchFiles(), 1);
    EXPECT_TRUE(QFileInfo::exists(scratchFile));
    EXPECT_EQ(frame->windowTitle(), context.title);
    EXPECT_TRUE(frame->windowTitle().contains(
        QStringLiteral("PID=%1").arg(QCoreApplication::applicationPid())));
    EXPECT_TRUE(frame->isVisible());
    EXPECT_NE(frame->statusBar(), nullptr);
    // The selection window and the grid window, which stays hidden until a view opens.
    ASSERT_EQ(frame->mdiArea()->subWindowList().size(), 2);
    EXPECT_FALSE(frame->gridSubWindow()->isVisible());
    EXPECT_EQ(frame->mdiArea()->activeSubWindow()->widget(), frame->selectionWindow());
    EXPECT_TRUE(frame->selectionWindow()->isVisible());
    EXPECT_EQ(context.commandLine, installation.root() + "/Meter1.DB");

    // Closing the selection window hides it; the frame and the run go on.
    frame->mdiArea()->activeSubWindow()->close();
    QApplication::processEvents();
    EXPECT_TRUE(frame->isVisible());
    EXPECT_TRUE(QFileInfo::exists(scratchFile));
    frame->showSelectionWindow();
    QApplication::processEvents();

    // The child view fills the frame's inner area.
    EXPECT_EQ(frame->mdiArea()->activeSubWindow()->geometry(),
              frame->mdiArea()->viewport()->rect());

    EXPECT_TRUE(lorvane::test::saveScreenshot(frame, "main-frame"));

    EXPECT_TRUE(frame->close());
    EXPECT_FALSE(QFileInfo::exists(scratchFile));
    EXPECT_FALSE(context.scratch);
    EXPECT_FALSE(context.dictionary);
}
