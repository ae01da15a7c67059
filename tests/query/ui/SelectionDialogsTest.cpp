// SPDX-License-Identifier: GPL-3.0-or-later
// The dialogs of the selection window: data points (capacity, OK with nothing, restore, double
// click), time range (interval bounds, swapped Between, the calendar picker), the date/time
// picker's clock, the logs of a Device Master Log, and the inputs, relays and demand items.
#include "SelectionWindowFixture.h"
#include "query/selection/DeviceMasterLog.h"
#include "query/selection/TopQueryBuffer.h"
#include "query/selection/ViewButtons.h"
#include "query/selection/ui/SelDataPoints.h"
#include "query/selection/ui/SelMeterItems.h"
#include "query/selection/ui/SelTimeRange.h"
#include "query/selection/ui/frmDeviceMasterLog.h"
#include "query/selection/ui/selDateTime.h"
#include "store/WallClock.h"
#include "support/ui/Screenshot.h"

#include <QDateEdit>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimeEdit>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::SelectionWindowFixture;

namespace {

QList<DataPointRow> numberedPoints(int count)
{
    QList<DataPointRow> rows;
    for (int i = 0; i < count; ++i)
        rows.append({20000 + i, QStringLiteral("Point %1").arg(i)});
    return rows;
}

QList<qint32> ids(const QTableWidget* grid)
{
    QList<qint32> result;
    for (int r = 0; r < grid->rowCount(); ++r)
        result.append(grid->item(r, 0)->text().toInt());
    return result;
}

} // namespace

TEST(SelDataPoints, CapacityOkWithNothingRestoreAndDoubleClick)
{
    RecordedMessages messages;
    ScopedUserMessages scoped(messages);
    TopQueryBuffer buffer;
    DataPointSelection points;
    DefaultSelection stored;
    {
        SelDataPoints dialog(points, buffer, numberedPoints(70), 2, stored, QString());
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select Data Points"));
        EXPECT_EQ(dialog.grid(1)->horizontalHeaderItem(0)->text(), QStringLiteral("Data ID"));
        EXPECT_EQ(dialog.grid(2)->horizontalHeaderItem(1)->text(), QStringLiteral("Data Name"));
        dialog.Command1_Click(2);
        EXPECT_EQ(messages.texts(),
                  QStringList{QStringLiteral("There are no data points selected.")});
        EXPECT_NE(dialog.result(), QDialog::Accepted) << "the dialog stays open";

        dialog.Command1_Click(7);
        EXPECT_EQ(messages.texts().value(1),
                  QStringLiteral("Too many data points selected for 2 device(s)."));
        EXPECT_EQ(dialog.grid(2)->rowCount(), 63) << "the 64th row is refused with two meters";
        EXPECT_EQ(dialog.grid(1)->rowCount(), 7);
        EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("Count2"))->text(),
                  QStringLiteral("Total = 63"));
        dialog.Command1_Click(8);
        EXPECT_EQ(dialog.grid(2)->rowCount(), 0);
    }
    {
        // With one meter the same 64th row fits.
        SelDataPoints dialog(points, buffer, numberedPoints(70), 1, stored, QString());
        messages.clear();
        dialog.Command1_Click(7);
        EXPECT_TRUE(messages.texts().isEmpty());
        EXPECT_EQ(dialog.grid(2)->rowCount(), 70);
    }

    buffer.setRow(1, {5, 1, {}, {}, 0});
    SelDataPoints dialog(points, buffer, numberedPoints(10), 1, stored, QString());
    emit dialog.grid(1)->cellDoubleClicked(3, 0);
    emit dialog.grid(1)->cellDoubleClicked(0, 1);
    EXPECT_EQ(ids(dialog.grid(2)), (QList<qint32>{20003, 20000}));
    dialog.Command1_Click(2);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(points.usedIds(), (QList<qint32>{20003, 20000}));
    EXPECT_FALSE(buffer.holds(1)) << "a new choice clears the buffered queries";

    // Restore brings the accepted choice back after the lists were changed.
    dialog.Command1_Click(8);
    dialog.grid(1)->selectRow(5);
    dialog.Command1_Click(5);
    EXPECT_EQ(ids(dialog.grid(2)), (QList<qint32>{20005}));
    dialog.Command1_Click(3);
    EXPECT_EQ(ids(dialog.grid(2)), (QList<qint32>{20003, 20000}));
    emit dialog.grid(2)->cellDoubleClicked(0, 0);
    EXPECT_EQ(ids(dialog.grid(2)), (QList<qint32>{20000}));
    EXPECT_TRUE(ids(dialog.grid(1)).contains(20003));
}

TEST(SelDataPoints, ShowsTheSimulatedMetersPoints)
{
    SelectionWindowFixture f;
    AllLogsFrm window(f.context);
    ASSERT_TRUE(window.openMeterFile(f.sim.meter(QStringLiteral("standard")), 0));
    const QList<DataPointRow> available = DataPointSelection::available(
        window.meters().usedFiles(), *f.context.dictionary, false, {});
    ASSERT_GT(available.size(), 10);
    SelDataPoints dialog(window.dataPoints(), window.topQueryBuffer(), available, 1,
                         f.context.defaultSelection, f.context.paths.settingsFile);
    for (int row : {4, 2, 0}) {
        dialog.grid(1)->selectRow(row);
        dialog.Command1_Click(5);
    }
    EXPECT_EQ(dialog.grid(2)->rowCount(), 3);
    EXPECT_FALSE(dialog.grid(2)->item(0, 1)->text().isEmpty()) << "named by the dictionary";
    dialog.Command1_Click(4);
    EXPECT_EQ(f.messages.texts().value(0), QStringLiteral("Default Data Points Saved."));
    // Fault: the run's stored defaults kept the start-up list, so the next meter loaded that.
    QList<qint32> stored;
    for (qint32 id : f.context.defaultSelection.dataIds) {
        if (id > 0)
            stored << id;
    }
    EXPECT_EQ(stored, ids(dialog.grid(2)));
    dialog.resize(860, 520);
    dialog.show();
    EXPECT_TRUE(lorvane::test::saveScreenshot(&dialog, QStringLiteral("select-data-points")));
}

TEST(SelTimeRange, IntervalBoundsSwappedBetweenAndCalendarPicker)
{
    SelectionWindowFixture f;
    AllLogsFrm window(f.context);
    ASSERT_TRUE(window.openMeterFile(f.sim.meter(QStringLiteral("standard")), 0));
    TimeSelection& time = window.timeSelection();
    TopQueryBuffer& buffer = window.topQueryBuffer();
    const QDateTime now(QDate(2024, 3, 20), QTime(14, 37, 20));
    const TimeSelection::Bounds data = TimeSelection::dataBounds(window.meters());
    ASSERT_TRUE(data.start.isValid());

    SelTimeRange dialog(time, buffer, data, now, true);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select a Time Range"));
    EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("SystemDate"))->text(),
              QStringLiteral("current system date is March 20, 2024"));
    auto* startDate = dialog.findChild<QDateEdit*>(QStringLiteral("DTPicker1_1"));
    EXPECT_EQ(startDate->toolTip(),
              QStringLiteral("Enter date/time or double-click it to get calendar"));
    EXPECT_EQ(startDate->date(), data.start.date()) << "no stored range: the data's limits";
    EXPECT_EQ(startDate->minimumDate(), data.start.date());

    dialog.findChild<QRadioButton*>(QStringLiteral("Option1_2"))->setChecked(true);
    auto* days = dialog.findChild<QLineEdit*>(QStringLiteral("Text1_2"));
    for (const char* refused : {"366", "0", "seven"}) {
        f.messages.clear();
        days->setText(QString::fromLatin1(refused));
        dialog.OK_Click();
        EXPECT_EQ(f.messages.texts(), QStringList{QStringLiteral("Invalid time range value.")})
            << refused;
        EXPECT_FALSE(time.defined());
    }
    dialog.findChild<QScrollBar*>(QStringLiteral("VScroll1_2"))->setValue(365);
    EXPECT_EQ(days->text(), QStringLiteral("365"));
    dialog.OK_Click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(time.option(), TimeSelection::Days);
    EXPECT_EQ(time.interval(), 365);

    // Between with the end before the start is swapped silently.
    SelTimeRange between(time, buffer, data, now, true);
    between.findChild<QDateEdit*>(QStringLiteral("DTPicker1_1"))->setDate(QDate(2024, 3, 5));
    between.findChild<QTimeEdit*>(QStringLiteral("DTPicker1_0"))->setTime(QTime(18, 30));
    between.findChild<QDateEdit*>(QStringLiteral("DTPicker1_3"))->setDate(QDate(2024, 3, 4));
    between.findChild<QTimeEdit*>(QStringLiteral("DTPicker1_2"))->setTime(QTime(6, 15));
    EXPECT_TRUE(between.findChild<QRadioButton*>(QStringLiteral("Option1_0"))->isChecked())
        << "editing a bound chooses Between";
    between.OK_Click();
    EXPECT_EQ(time.option(), TimeSelection::Between);
    EXPECT_EQ(time.startTime(), WallClock::at(QDate(2024, 3, 4), QTime(6, 15)));
    EXPECT_EQ(time.endTime(), WallClock::at(QDate(2024, 3, 5), QTime(18, 30)));

    // Fault: Between dropped the seconds of a bound taken from the data (23:59:59).
    SelTimeRange whole(time, buffer, data, now, true);
    whole.findChild<QTimeEdit*>(QStringLiteral("DTPicker1_2"))->setTime(data.end.time());
    whole.findChild<QDateEdit*>(QStringLiteral("DTPicker1_3"))->setDate(data.end.date());
    whole.OK_Click();
    EXPECT_EQ(time.endTime(), data.end);

    // The calendar picker of the end bound fills both end pickers.
    SelTimeRange picked(time, buffer, data, now, true);
    QString heading;
    picked.runPicker = [&](selDateTime& picker) {
        heading = picker.findChild<QLabel*>(QStringLiteral("Heading"))->text();
        picker.setDateTime(QDateTime(QDate(2024, 3, 5), QTime(0, 0)));
        picker.setMinuteOfDay(21 * 60 + 5);
        return true;
    };
    picked.pickDateTime(true);
    EXPECT_EQ(heading, QStringLiteral("Please select an end date/time."));
    EXPECT_EQ(picked.findChild<QTimeEdit*>(QStringLiteral("DTPicker1_2"))->time(), QTime(21, 5));
    EXPECT_EQ(picked.findChild<QDateEdit*>(QStringLiteral("DTPicker1_3"))->date(),
              QDate(2024, 3, 5));
    picked.show();
    EXPECT_TRUE(lorvane::test::saveScreenshot(&picked, QStringLiteral("select-time-range")));
}

TEST(selDateTime, HeadingsClockLabelsAndUnsetTime)
{
    selDateTime twelve(false, false);
    const auto label = [](const QDialog& d, const QString& name) {
        return d.findChild<QLabel*>(name)->text();
    };
    EXPECT_EQ(label(twelve, QStringLiteral("Heading")),
              QStringLiteral("Please select a start date/time."));
    EXPECT_EQ(label(twelve, QStringLiteral("SliderEnd0")), QStringLiteral("12:00 AM"));
    EXPECT_EQ(label(twelve, QStringLiteral("SliderEnd1")), QStringLiteral("12:00 PM"));
    EXPECT_EQ(label(twelve, QStringLiteral("SliderEnd2")), QStringLiteral("11:59 PM"));
    EXPECT_EQ(label(twelve, QStringLiteral("TimeText")), QStringLiteral("00:00"));
    twelve.setMinuteOfDay(1439);
    EXPECT_EQ(label(twelve, QStringLiteral("TimeText")), QStringLiteral("11:59 PM"));

    selDateTime day(true, true);
    EXPECT_EQ(label(day, QStringLiteral("SliderEnd0")), QStringLiteral("0:00"));
    EXPECT_EQ(label(day, QStringLiteral("SliderEnd2")), QStringLiteral("23:59"));
    day.setDateTime(QDateTime(QDate(2024, 3, 4), QTime(13, 45, 30)));
    EXPECT_EQ(label(day, QStringLiteral("TimeText")), QStringLiteral("13:45"));
    EXPECT_EQ(day.dateTime(), WallClock::at(QDate(2024, 3, 4), QTime(13, 45)));
    day.OK_Click();
    EXPECT_EQ(day.result(), QDialog::Accepted);
    day.show();
    EXPECT_TRUE(lorvane::test::saveScreenshot(&day, QStringLiteral("select-date-time")));
}

TEST(frmDeviceMasterLog, RowsSelectionDoubleClickAndCancel)
{
    SelectionWindowFixture f;
    const QString dml = f.sim.splitMeter();
    frmDeviceMasterLog window(dml);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Please select the log you want to view"));
    QTableWidget* grid = window.grid();
    ASSERT_EQ(grid->rowCount(), DeviceMasterLog::logCount);
    EXPECT_EQ(grid->horizontalHeaderItem(0)->text(), QStringLiteral("Log"));
    EXPECT_EQ(grid->horizontalHeaderItem(1)->text(), QStringLiteral("Status"));
    DeviceMasterLog expected;
    expected.init(dml);
    for (int r = 0; r < grid->rowCount(); ++r) {
        EXPECT_EQ(grid->item(r, 0)->text(), expected.rows().at(r).displayName);
        EXPECT_EQ(grid->item(r, 1)->text(),
                  DeviceMasterLog::statusText(expected.rows().at(r).status));
    }
    EXPECT_EQ(grid->item(13, 1)->text(), QStringLiteral("Available")) << "system event log";
    const auto* label = window.findChild<QLabel*>(QStringLiteral("lbl_SelectedLog"));
    EXPECT_EQ(label->text(), QStringLiteral("No Log Selected"));
    EXPECT_TRUE(window.selectedPath().isEmpty());

    emit grid->cellClicked(14, 0);
    EXPECT_EQ(label->text(), QStringLiteral("PQ"));
    window.show();
    EXPECT_TRUE(lorvane::test::saveScreenshot(&window, QStringLiteral("device-master-log")));
    emit grid->cellDoubleClicked(13, 1);
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(window.selectedPath(), expected.selectedPath(13));
    EXPECT_TRUE(
        window.selectedPath().endsWith(QStringLiteral("logs/SYSTEM_EVENT/SYSTEM_EVENT.db")));

    // With no logs folder every row is "Not Available" and only cancel gives a result.
    const QString lone = f.sim.dir().filePath(QStringLiteral("Lone.dml"));
    QFile(lone).open(QIODevice::WriteOnly);
    frmDeviceMasterLog empty(lone);
    for (int r = 0; r < empty.grid()->rowCount(); ++r)
        EXPECT_EQ(empty.grid()->item(r, 1)->text(), QStringLiteral("Not Available"));
    empty.selectRow(2);
    empty.findChild<QPushButton*>(QStringLiteral("cmd_Cancel"))->click();
    EXPECT_EQ(empty.result(), QDialog::Rejected);
    EXPECT_TRUE(empty.selectedPath().isEmpty());
}

// Fault: the inputs, relays and demand items the views read could be chosen on the command
// line only; the window had no control for them.
TEST(SelMeterItems, TicksPerMeterReachTheSessionAndTooManyDemandItemsAreRefused)
{
    SelectionWindowFixture f;
    AllLogsFrm window(f.context);
    ASSERT_TRUE(window.openMeterFile(f.sim.meter(QStringLiteral("standard")), 0));
    ASSERT_TRUE(window.openMeterFile(f.sim.meter(QStringLiteral("talmo")), 1));
    EXPECT_TRUE(window.findChild<QPushButton*>(QStringLiteral("cmdMeterItems"))->isEnabled());
    const QList<SelMeterItems::Meter> meters =
        SelMeterItems::metersOf(window.meters(), f.context.dictionary.get());
    ASSERT_EQ(meters.size(), 2);
    ASSERT_GT(meters.at(0).offer.inputs.size(), 1);
    ASSERT_GT(meters.at(1).offer.relays.size(), 1);
    ASSERT_FALSE(meters.at(0).demandNames.value(0).isEmpty()) << "named by the dictionary";

    TopQueryBuffer::Row held;
    held.queryIndex = 3;
    window.topQueryBuffer().setRow(ViewButtons::Inputs, held);
    SelMeterItems dialog(window.session(), meters);
    const auto untick = [&](int which, int row) {
        dialog.list(which)->item(row)->setCheckState(Qt::Unchecked);
    };
    // Nothing chosen yet: every item is read, so every box is ticked.
    for (int which = 0; which < 3; ++which)
        for (int row = 0; row < dialog.list(which)->count(); ++row)
            EXPECT_EQ(dialog.list(which)->item(row)->checkState(), Qt::Checked);
    untick(0, 0);
    untick(2, 1);
    dialog.showMeter(1);
    untick(1, 0);
    dialog.showMeter(0);
    EXPECT_EQ(dialog.list(0)->item(0)->checkState(), Qt::Unchecked) << "meter 1 kept its ticks";
    dialog.resize(900, 420);
    dialog.show();
    EXPECT_TRUE(lorvane::test::saveScreenshot(&dialog, QStringLiteral("select-meter-items")));
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);

    const MeterItems first = window.meters().device(0).items;
    EXPECT_EQ(first.inputs.size(), meters.at(0).offer.inputs.size() - 1);
    EXPECT_FALSE(first.inputs.contains(meters.at(0).offer.inputs.at(0).place));
    EXPECT_TRUE(first.relays.isEmpty()) << "all ticked reads every relay";
    EXPECT_EQ(first.demandIds.size(), meters.at(0).offer.demandIds.size() - 1);
    const MeterItems second = window.meters().device(1).items;
    EXPECT_TRUE(second.inputs.isEmpty());
    EXPECT_EQ(second.relays.size(), meters.at(1).offer.relays.size() - 1);
    EXPECT_FALSE(window.topQueryBuffer().holds(ViewButtons::Inputs));

    // More demand items than a view reads (all but one of 14 ticked): refused with a message,
    // nothing changes.
    ASSERT_TRUE(window.session().setMeterItems(0, MeterItems{}));
    QList<SelMeterItems::Meter> many{meters.at(0)};
    many[0].offer.demandIds.clear();
    for (int i = 0; i <= MeterItems::demandCount + 1; ++i)
        many[0].offer.demandIds << 26000 + i;
    SelMeterItems refusing(window.session(), many);
    refusing.list(2)->item(0)->setCheckState(Qt::Unchecked);
    refusing.accept();
    EXPECT_NE(refusing.result(), QDialog::Accepted);
    EXPECT_EQ(f.messages.texts().value(0), QStringLiteral("Too many demand items selected for ") +
                                               meters.at(0).name +
                                               QStringLiteral(". At most 12 can be read."));
    EXPECT_TRUE(window.meters().device(0).items.demandIds.isEmpty());
}
