// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/RunContext.h"
#include "app/ui/SysSetupFrm.h"
#include "app/ui/WaitFrm.h"
#include "app/ui/frmProgress.h"
#include "platform/UserMessages.h"
#include "support/TestEnvironment.h"
#include "support/ui/Screenshot.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QString readText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

TEST(WaitWindow, MessagesAnimationAndOneCancel)
{
    lorvane::RunContext context;
    context.title = "Lorvane (v0.1.0, PID=42)";
    lorvane::WaitFrm wait(context);
    wait.show();
    EXPECT_EQ(wait.message(0), "Please wait");
    EXPECT_EQ(wait.cancelButton()->text(), "&Cancel");
    wait.SetMessage(1, "Searching data for device Meter 1");
    wait.status("Day 03/04/2024");
    wait.SetMessage(2, "Hour 12");
    wait.SetMessage(3, "ignored");
    EXPECT_EQ(wait.message(1), "Day 03/04/2024");
    EXPECT_EQ(wait.message(2), "Hour 12");
    // The bar stood still whatever the load knew: a known share moves it, an unknown length
    // makes it the busy bar.
    EXPECT_EQ(wait.bar()->maximum(), 0);
    wait.advance(40, 100);
    EXPECT_EQ(wait.bar()->value() * 100 / wait.bar()->maximum(), 40);
    EXPECT_TRUE(lorvane::test::saveScreenshot(&wait, "wait-window"));
    wait.setFraction(std::nullopt);
    EXPECT_EQ(wait.bar()->maximum(), 0);
    wait.advance(3, 2);
    EXPECT_EQ(wait.bar()->value(), wait.bar()->maximum()) << "a share above the whole is full";

    // The picture turns through 18 frames and starts again.
    const int first = wait.animationFrame();
    for (int tick = 0; tick < lorvane::WaitFrm::animationFrames; ++tick)
        wait.Timer1_Timer();
    EXPECT_EQ(wait.animationFrame(), first);

    EXPECT_FALSE(wait.cancelRequested());
    wait.cancelButton()->click();
    EXPECT_TRUE(wait.cancelled());
    EXPECT_TRUE(wait.cancelRequested());
    EXPECT_FALSE(wait.cancelButton()->isEnabled());
    const QString caption = "Lorvane (v0.1.0, PID=42) Cancel operation in progress.";
    EXPECT_EQ(wait.windowTitle(), caption);
    // The button is disabled: a second click reaches nothing.
    wait.cancelButton()->click();
    EXPECT_EQ(wait.windowTitle(), caption);
}

TEST(ProgressWindow, TimeStampedMessagesUntilCancelled)
{
    lorvane::frmProgress progress;
    progress.Start("Capture 17 of Meter 1");
    EXPECT_EQ(progress.windowTitle(), "Waveform Conversion");
    progress.setProgressMax(4);
    progress.setProgress(2);
    progress.AddMessage("Header read");
    // As a watcher of the progress contract a step's text is a message line.
    progress.status("Channels converted");
    const QRegularExpression stamped(R"(^\(\d\d:\d\d:\d\d\d\) )");
    QStringList lines = progress.messages();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(stamped.match(lines[0]).hasMatch()) << lines[0].toStdString();
    EXPECT_TRUE(lines[0].endsWith(") Beginning of the conversion"));
    EXPECT_TRUE(lines[2].endsWith(") Channels converted"));
    progress.show();
    EXPECT_TRUE(lorvane::test::saveScreenshot(&progress, "progress-window"));

    progress.cancelButton()->click();
    EXPECT_TRUE(progress.Cancelled());
    EXPECT_TRUE(progress.cancelRequested());
    EXPECT_FALSE(progress.cancelButton()->isEnabled());
    progress.AddMessage("Written after the cancel");
    progress.cancelButton()->click();
    lines = progress.messages();
    ASSERT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines[3].endsWith(") User has cancelled the process...please wait.."));

    // A new operation starts afresh.
    progress.Start("Capture 18 of Meter 1");
    EXPECT_FALSE(progress.Cancelled());
    EXPECT_FALSE(progress.cancelRequested());
    EXPECT_EQ(progress.messages().size(), 1);
}

TEST(SystemPropertiesWindow, ApplyWritesTheSectionAndReadsItBack)
{
    QTemporaryDir folder;
    const QString settingsFile = folder.filePath("Lorvane.Ini");
    QFile seed(settingsFile);
    ASSERT_TRUE(seed.open(QIODevice::WriteOnly));
    seed.write("[DefaultSetting]\nDevice1=Meter A\n");
    seed.close();

    lorvane::LocalSystemSettings settings;
    const auto userSetting = [](const QString&, const QString&, const QString& key,
                                const QString& fallback) {
        return key == "Retrieved Logs Path" ? QStringLiteral("/harvested/logs") : fallback;
    };
    lorvane::SysSetupFrm dialog(settings, settingsFile, userSetting);
    EXPECT_EQ(dialog.windowTitle(), "System Properties");
    dialog.chooseFolder = [&](const QString&) { return folder.filePath("meters"); };
    dialog.chooseCurveFile = [](const QString&) { return QString(); };

    dialog.loadOnStartupBox()->setChecked(true);
    dialog.folderBrowseButton()->click();
    dialog.curveBrowseButton()->click(); // cancelled: the field stays
    // The curve library fills the boundary line file field with the chosen curve's path.
    dialog.setCurveLibrary(lorvane::test::dataFolder() + "/curves");
    QComboBox* library = dialog.curveLibraryList();
    const int itic = library->findText("ITIC");
    ASSERT_GT(itic, 0);
    library->setCurrentIndex(itic);
    emit library->activated(itic);
    const QString curve = QDir::toNativeSeparators(library->itemData(itic).toString());
    EXPECT_EQ(dialog.curveFileEdit()->text(), curve);
    dialog.maxDevicesEdit()->setText("5");
    dialog.maxDataPointsEdit()->setText("99");
    dialog.dataFormatBox()->setCurrentText("0.000");
    dialog.show();
    EXPECT_TRUE(lorvane::test::saveScreenshot(&dialog, "system-properties"));

    // The method-1 box shows the sibling program's path as current path.
    dialog.tesseraDefaultBox()->click();
    EXPECT_EQ(dialog.currentPathEdit()->text(), "/harvested/logs");
    dialog.tesseraDefaultBox()->click();
    EXPECT_EQ(dialog.currentPathEdit()->text(), folder.filePath("meters"));

    ASSERT_TRUE(dialog.applyClicked());
    const QString written = readText(settingsFile);
    EXPECT_TRUE(written.contains("Device1=Meter A")) << written.toStdString();
    EXPECT_TRUE(written.contains("AutoLoadDBs=Yes"));
    EXPECT_TRUE(written.contains("DefaultPath=" + folder.filePath("meters")));
    EXPECT_TRUE(written.contains("DefaultMethod=UserSet"));
    EXPECT_TRUE(written.contains("MaxDeviceLogNumber=2"));
    EXPECT_TRUE(written.contains("TempLogRecSize=100"));
    EXPECT_TRUE(written.contains("Dataformat=0.000"));
    EXPECT_TRUE(written.contains("UserPQCurveFile=" + curve)) << written.toStdString();
    // Re-read: the run-wide settings and the fields hold the clamped values.
    EXPECT_TRUE(settings.autoLoadDBs);
    EXPECT_EQ(settings.maxDeviceLogNumber, 2);
    EXPECT_EQ(settings.tempLogRecSize, 100);
    EXPECT_EQ(settings.dataFormat, "0.000");
    EXPECT_EQ(settings.currentPath, folder.filePath("meters"));
    EXPECT_EQ(dialog.maxDevicesEdit()->text(), "2");
    EXPECT_EQ(dialog.maxDataPointsEdit()->text(), "100");
}

TEST(SystemPropertiesWindow, AnUnwritableFileKeepsTheFieldsAndSaysWhy)
{
    QTemporaryDir folder;
    lorvane::RecordedMessages messages;
    lorvane::ScopedUserMessages scoped(messages);
    lorvane::LocalSystemSettings settings;
    // A folder where the file should be: nothing can be written there.
    const QString settingsFile = folder.filePath("Lorvane.Ini");
    ASSERT_TRUE(QDir().mkpath(settingsFile));
    lorvane::SysSetupFrm dialog(settings, settingsFile,
                                [](const QString&, const QString&, const QString&,
                                   const QString& fallback) { return fallback; });
    dialog.maxDataPointsEdit()->setText("777");
    dialog.okClicked();
    EXPECT_EQ(messages.texts().size(), 1);
    EXPECT_EQ(dialog.maxDataPointsEdit()->text(), "777");
    EXPECT_EQ(settings.tempLogRecSize, 4500);
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}
