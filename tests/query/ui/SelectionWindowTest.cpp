// SPDX-License-Identifier: GPL-3.0-or-later
// The selection window on simulated meters: the tree and combo boxes, the view buttons each
// kind of meter enables, the request a view button hands to the grid, and the refusals.
#include "SelectionWindowFixture.h"
#include "query/selection/ViewButtons.h"
#include "query/selection/ui/SelDataPoints.h"
#include "support/ui/Screenshot.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <gtest/gtest.h>
#include <tuple>

using namespace lorvane;
using lorvane::test::SelectionWindowFixture;

namespace {

QStringList comboTexts(const AllLogsFrm& window, int meterIndex)
{
    const auto* combo = window.findChild<QComboBox*>(QStringLiteral("Combo1_%1").arg(meterIndex));
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts << combo->itemText(i);
    return texts;
}

QPushButton* button(const AllLogsFrm& window, const QString& name)
{
    return window.findChild<QPushButton*>(name);
}

/// What the view buttons of the window show, as the rule's states.
ViewButtons::States shownStates(const AllLogsFrm& window)
{
    ViewButtons::States states{};
    for (int i = 0; i < ViewButtons::count; ++i)
        states.at(static_cast<size_t>(i)) =
            button(window, QStringLiteral("Command2_%1").arg(i))->isEnabled();
    return states;
}

} // namespace

TEST(SelectionWindow, TwoMetersFillTreeCombosAndViewButtons)
{
    SelectionWindowFixture f;
    AllLogsFrm window(f.context);
    EXPECT_FALSE(window.viewButtonEnabled(0)) << "no meter: no view";
    EXPECT_FALSE(button(window, QStringLiteral("Command3_2"))->isEnabled());
    EXPECT_TRUE(button(window, QStringLiteral("Command3_0"))->isEnabled());

    QSignalSpy buttonsChanged(&window, &AllLogsFrm::viewButtonsChanged);
    const QString standard = f.sim.meter(QStringLiteral("standard"));
    const QString talmo = f.sim.meter(QStringLiteral("talmo"));
    ASSERT_TRUE(window.openMeterFile(standard, 0)) << f.messages.texts().join('\n').toStdString();
    ASSERT_TRUE(window.openMeterFile(talmo, 1)) << f.messages.texts().join('\n').toStdString();
    EXPECT_GE(buttonsChanged.count(), 2);

    QTreeWidgetItem* root = SelectionWindowFixture::node(window, QStringLiteral("ROOT"));
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->text(0), QStringLiteral("All Devices"));
    for (int i = 1; i <= 2; ++i) {
        const DeviceRecord& device = window.meters().device(i - 1);
        QTreeWidgetItem* meter =
            SelectionWindowFixture::node(window, QStringLiteral("Device_%1").arg(i));
        ASSERT_NE(meter, nullptr);
        EXPECT_EQ(meter->text(0), device.fileName);
        EXPECT_EQ(meter->data(0, Qt::UserRole + 1).toString(), device.filePath);
        EXPECT_EQ(meter->parent()->data(0, Qt::UserRole).toString(),
                  QStringLiteral("DevID#_%1").arg(device.deviceTypeId));
        EXPECT_EQ(meter->parent()->text(0), f.context.deviceTypes.entry(device.deviceTypeId).name);
        QTreeWidgetItem* name =
            SelectionWindowFixture::node(window, QStringLiteral("DeItem_1|D_%1").arg(i));
        ASSERT_NE(name, nullptr);
        EXPECT_EQ(
            name->text(0),
            QStringLiteral("Device ID Name = %1 (%2)").arg(device.hardwareName, device.hardwareId));
        EXPECT_EQ(
            SelectionWindowFixture::node(window, QStringLiteral("DeItem_2|D_%1").arg(i))->text(0),
            QStringLiteral("File Path = ") + device.filePath);
        QTreeWidgetItem* snapshots =
            SelectionWindowFixture::node(window, QStringLiteral("LogsID_3|D_%1|Logs_1").arg(i));
        ASSERT_NE(snapshots, nullptr);
        EXPECT_EQ(snapshots->parent()->data(0, Qt::UserRole).toString(),
                  QStringLiteral("DeItem_3|D_%1").arg(i));
        EXPECT_TRUE(snapshots->text(0).startsWith(QStringLiteral("From 2024-03-04")) ||
                    snapshots->text(0).startsWith(QStringLiteral("From 03/04/2024")))
            << snapshots->text(0).toStdString();
        EXPECT_EQ(comboTexts(window, i - 1),
                  (QStringList{QStringLiteral("No Meter"), device.hardwareName}));
    }

    const ViewButtons::States expected = ViewButtons::enabled(window.meters());
    EXPECT_EQ(shownStates(window), expected);
    for (int i = 0; i < ViewButtons::count; ++i)
        EXPECT_EQ(window.viewButtonEnabled(i), expected.at(static_cast<size_t>(i))) << i;
    for (int exportButton : {6, 9, 13})
        EXPECT_FALSE(window.viewButtonEnabled(exportButton)) << "no export component";
    EXPECT_TRUE(window.viewButtonEnabled(ViewButtons::Snapshots));
    EXPECT_TRUE(button(window, QStringLiteral("Command3_2"))->isEnabled());

    // "No Meter" leaves the buttons until the rule runs again, but the meter is no longer used.
    auto* combo = window.findChild<QComboBox*>(QStringLiteral("Combo1_1"));
    emit combo->activated(0);
    EXPECT_FALSE(window.meters().device(1).used);
    EXPECT_EQ(shownStates(window), expected);
    emit combo->activated(1);

    window.resize(1100, 640);
    window.show();
    EXPECT_TRUE(lorvane::test::saveScreenshot(&window, QStringLiteral("selection-window")));
}

TEST(SelectionWindow, ButtonsFollowMeterKindAndDeviceMasterLogHidesMeter2)
{
    SelectionWindowFixture f;
    AllLogsFrm window(f.context);
    ASSERT_TRUE(window.openMeterFile(f.sim.meter(QStringLiteral("basic")), 0));
    const ViewButtons::States basic = shownStates(window);
    EXPECT_EQ(basic, ViewButtons::enabledBy(window.meters().device(0)));
    EXPECT_TRUE(basic.at(ViewButtons::DatabaseStatus));
    EXPECT_TRUE(basic.at(ViewButtons::SystemEvent));
    for (int none : {ViewButtons::Demand, ViewButtons::Limits, ViewButtons::Waveform,
                     ViewButtons::PowerQuality, ViewButtons::Inputs, ViewButtons::Flicker})
        EXPECT_FALSE(basic.at(static_cast<size_t>(none))) << none;

    const auto* combo2 = window.findChild<QComboBox*>(QStringLiteral("Combo1_1"));
    const QPushButton* meter2 = button(window, QStringLiteral("Command3_1"));
    const QPushButton* dml = button(window, QStringLiteral("cmd_DML_Select"));
    EXPECT_FALSE(combo2->isHidden());
    EXPECT_TRUE(dml->isHidden());

    ASSERT_TRUE(window.openMeterFile(f.sim.splitMeter(), 0))
        << f.messages.texts().join('\n').toStdString();
    EXPECT_EQ(window.meters().device(0).deviceTypeId, 5);
    EXPECT_TRUE(combo2->isHidden()) << "a Device Master Log is alone";
    EXPECT_TRUE(meter2->isHidden());
    EXPECT_FALSE(dml->isHidden());
    EXPECT_EQ(shownStates(window), ViewButtons::enabledBy(window.meters().device(0)));
    EXPECT_TRUE(window.viewButtonEnabled(ViewButtons::Snapshots));

    // The Device Master Log button asks for a log and opens it, meter 2 staying hidden.
    QString asked;
    window.chooseSplitLog = [&](const QString& marker) {
        asked = marker;
        return window.meters().device(0).filePath;
    };
    button(window, QStringLiteral("cmd_DML_Select"))->click();
    EXPECT_TRUE(asked.endsWith(QStringLiteral(".dml"))) << asked.toStdString();
    EXPECT_TRUE(combo2->isHidden());
    // Fault: a second press asked again; it opens the log chosen before.
    asked.clear();
    button(window, QStringLiteral("cmd_DML_Select"))->click();
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_EQ(window.meters().storedDevicePath(), window.meters().device(0).filePath);

    ASSERT_TRUE(window.openMeterFile(f.sim.meter(QStringLiteral("standard")), 0));
    EXPECT_FALSE(combo2->isHidden()) << "a plain file makes meter 2 selectable again";
    EXPECT_FALSE(meter2->isHidden());
    EXPECT_TRUE(dml->isHidden());
}

TEST(SelectionWindow, SnapshotsPressRequestsFreshThenBufferedView)
{
    SelectionWindowFixture f;
    AllLogsFrm window(f.context);
    const QString path = f.sim.meter(QStringLiteral("standard"));
    ASSERT_TRUE(window.openMeterFile(path, 0));
    window.dataPoints().openDialog({{20617, QString()}, {20618, QString()}});
    window.dataPoints().addAll(1);
    ASSERT_EQ(window.dataPoints().accept(window.topQueryBuffer()), QString());
    ASSERT_EQ(window.timeSelection().acceptPrevious(TimeSelection::Days, QStringLiteral("7"),
                                                    window.topQueryBuffer()),
              QString());

    QSignalSpy spy(&window, &AllLogsFrm::viewRequested);
    button(window, QStringLiteral("Command2_1"))->click();
    ASSERT_EQ(spy.count(), 1) << f.messages.texts().join('\n').toStdString();
    auto request = spy.at(0).at(0).value<ViewDispatch::Request>();
    EXPECT_EQ(request.action, ViewDispatch::Action::Grid);
    EXPECT_EQ(request.logKind, LogKind::Snapshots);
    EXPECT_EQ(request.button, 1);
    EXPECT_EQ(request.itemIds, (QList<qint32>{20617, 20618}));
    ASSERT_EQ(request.files.size(), 1);
    EXPECT_EQ(request.files.first().dbPath, path);
    EXPECT_EQ(request.end.time(), QTime(23, 59, 59)) << "the last minute read to its end";
    EXPECT_EQ(request.start.date().daysTo(request.end.date()), 6);
    EXPECT_TRUE(request.fresh);

    // The grid records the query it ran for the button; the next press shows it again.
    window.topQueryBuffer().setRow(1, {12, 1, request.start, request.end, 0});
    window.Command2_Click(1);
    ASSERT_EQ(spy.count(), 2);
    EXPECT_FALSE(spy.at(1).at(0).value<ViewDispatch::Request>().fresh);
}

TEST(SelectionWindow, RefusalsSayWhyAndKeepTheSelection)
{
    SelectionWindowFixture f;
    AllLogsFrm window(f.context);
    QSignalSpy spy(&window, &AllLogsFrm::viewRequested);
    const QString noMeter = QStringLiteral("Please select a meter data file.");

    window.Command2_Click(1);
    EXPECT_EQ(f.messages.texts().value(0), noMeter);
    window.Command3_Click(2);
    EXPECT_EQ(f.messages.texts().value(1), noMeter);
    window.Command3_Click(4);
    EXPECT_EQ(f.messages.texts().value(2),
              QStringLiteral("Cannot find Tessera Ext.\nApplication may not be active."));

    QSignalSpy help(&window, &AllLogsFrm::helpRequested);
    window.Command3_Click(5);
    ASSERT_EQ(help.count(), 1);
    EXPECT_EQ(help.at(0).at(0).toString(), QStringLiteral("LRMain"));

    // A cancelled file dialog does nothing; a chosen file opens.
    const QString standard = f.sim.meter(QStringLiteral("standard"));
    QString answer;
    window.chooseMeterFile = [&](int) { return answer; };
    window.Command3_Click(0);
    EXPECT_EQ(window.meters().usedCount(), 0);
    answer = standard;
    window.Command3_Click(0);
    EXPECT_EQ(window.meters().device(0).filePath, standard);
    EXPECT_EQ(window.meters().lastFolder(), QFileInfo(standard).absolutePath());

    // A file that is no database is refused with a message; meter 1 stays as it was.
    const QString text = f.sim.dir().filePath(QStringLiteral("notes.DB"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("only some notes, not a log database");
    file.close();
    f.messages.clear();
    EXPECT_FALSE(window.openMeterFile(text, 0));
    EXPECT_EQ(f.messages.texts().size(), 1);
    EXPECT_EQ(window.meters().device(0).filePath, standard);
    EXPECT_TRUE(window.viewButtonEnabled(ViewButtons::DatabaseStatus));

    f.messages.clear();
    window.Command2_Click(1);
    EXPECT_EQ(f.messages.texts(),
              QStringList{QStringLiteral(
                  "Please specify the date range to be used for parsing the log(s).")});
    window.timeSelection().acceptPrevious(TimeSelection::Hours, QStringLiteral("1"),
                                          window.topQueryBuffer());
    f.messages.clear();
    window.Command2_Click(ViewButtons::Billing);
    EXPECT_EQ(f.messages.texts(), QStringList{QStringLiteral("Please set it in Tessera software")});
    f.messages.clear();
    window.Command2_Click(ViewButtons::Reports);
    EXPECT_EQ(f.messages.texts(), QStringList{QStringLiteral("Launch Vex*Grid Report Failed.")});
    EXPECT_EQ(spy.count(), 0);
}

TEST(SelectionWindow, AutoLoadOpensNewestFileOrSaysThePathIsInvalid)
{
    SelectionWindowFixture f;
    f.context.settings.currentPath = f.sim.dir().filePath(QStringLiteral("missing"));
    {
        AllLogsFrm window(f.context);
        window.autoLoadNewestFile();
        EXPECT_EQ(f.messages.texts().value(0),
                  QStringLiteral("Invalid path\nPlease start Tessera Ext to resolve error: ") +
                      f.context.settings.currentPath);
        EXPECT_EQ(window.meters().usedCount(), 0);
    }

    const QString older = f.sim.meter(QStringLiteral("basic"));
    const QString newer = f.sim.meter(QStringLiteral("talmo"));
    const QString folder = f.sim.dir().filePath(QStringLiteral("retrieved"));
    QDir().mkpath(folder);
    const QDateTime stamp(QDate(2024, 5, 1), QTime(8, 0));
    for (const auto& [from, name, age] : {std::tuple{older, QStringLiteral("a.DB"), 0},
                                          std::tuple{newer, QStringLiteral("b.DB"), 60}}) {
        const QString target = folder + u'/' + name;
        ASSERT_TRUE(QFile::copy(from, target));
        QFile copy(target);
        ASSERT_TRUE(copy.open(QIODevice::ReadWrite));
        ASSERT_TRUE(copy.setFileTime(stamp.addSecs(age), QFileDevice::FileModificationTime));
    }
    f.context.settings.currentPath = folder;
    AllLogsFrm window(f.context);
    window.autoLoadNewestFile();
    EXPECT_EQ(window.meters().device(0).fileName, QStringLiteral("b.DB"));
}

TEST(SelectionWindow, DataPointButtonRunsDialogAndShowsTheCount)
{
    SelectionWindowFixture f;
    AllLogsFrm window(f.context);
    ASSERT_TRUE(window.openMeterFile(f.sim.meter(QStringLiteral("standard")), 0));
    QSignalSpy status(&window, &AllLogsFrm::statusTextChanged);
    int runs = 0;
    window.runDataPointDialog = [&] {
        ++runs;
        const QList<DataPointRow> available = DataPointSelection::available(
            window.meters().usedFiles(), *f.context.dictionary, false, {});
        SelDataPoints dialog(window.dataPoints(), window.topQueryBuffer(), available, 1,
                             f.context.defaultSelection, f.context.paths.settingsFile);
        dialog.grid(1)->selectRow(0);
        dialog.Command1_Click(5);
        dialog.grid(1)->selectRow(0);
        dialog.Command1_Click(5);
        dialog.Command1_Click(2);
        return dialog.result() == QDialog::Accepted;
    };
    window.Command3_Click(2);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(window.dataPoints().count(), 2);
    EXPECT_TRUE(window.dataPoints().valid());
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("DataPointStatus"))->text(),
              QStringLiteral("Current selected data points. Total = 2"));
    ASSERT_GE(status.count(), 1);
    EXPECT_EQ(status.last().at(1).toString(),
              QStringLiteral("Current selected data points. Total = 2"));

    // A new meter makes the points unselected until the dialog runs again.
    ASSERT_TRUE(window.openMeterFile(f.sim.meter(QStringLiteral("talmo")), 0));
    EXPECT_FALSE(window.dataPoints().valid());
}
