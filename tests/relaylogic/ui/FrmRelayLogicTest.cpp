// SPDX-License-Identifier: GPL-3.0-or-later
// The relay logic window on a simulated recorder: the trees of an AND-of-limits relay and of
// the hysteresis relay with their grids, the steps to either end, Print's refusal, and a
// record that fails to read leaving the last good tree.
#include "relaylogic/ui/FrmRelayLogic.h"

#include "app/RunContext.h"
#include "graph/ui/GraphWindows.h"
#include "platform/SqlIdentifier.h"
#include "platform/UserMessages.h"
#include "relaylogic/RelaySimMeter.h"
#include "relaylogic/ui/RelayLogicCanvas.h"
#include "relaylogic/ui/RelayLogicMaker.h"
#include "support/ui/Screenshot.h"

#include <QApplication>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

using namespace lorvane;
using namespace lorvane::test;

namespace {

struct WindowRun
{
    RelaySimMeter sim;
    RecordedMessages messages;
    ScopedUserMessages scope{messages};
    FrmRelayLogic window{sim.scratch->database(), sim.view.numbers, sim.relays().rowKeys};

    void press(FrmRelayLogic::Command which)
    {
        QTest::mouseClick(window.command(which), Qt::LeftButton);
    }
    QString cell(int row, int column) const
    {
        const QAbstractItemModel* model = window.grid()->model();
        return model->data(model->index(row, column)).toString();
    }
};

} // namespace

TEST(FrmRelayLogic, ShowsTheTreesOfAnAndRelayAndAHysteresisRelay)
{
    WindowRun run;
    run.window.show();
    struct Case
    {
        const char* relay;
        const char* clock;
        const char* screenshot;
        int lines;
        const char* firstType;
    } const cases[] = {
        {"Load Shed", "", "relay-logic-and", 4, "AND"},
        {"Feeder Lockout", "09:30", "relay-logic-hysteresis", 12, "XOR"},
        {"Feeder Lockout", "21:15", "relay-logic-locked", 12, "XOR"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.screenshot);
        const int row = run.sim.row(QString::fromLatin1(c.relay), QString::fromLatin1(c.clock));
        ASSERT_GE(row, 0);
        ASSERT_TRUE(run.window.ShowRelayLogic(row));
        EXPECT_EQ(run.window.windowTitle(), QStringLiteral("Zelmo Logic Relay Control"));
        const QAbstractItemModel* model = run.window.grid()->model();
        ASSERT_EQ(model->rowCount(), c.lines);
        QStringList heads;
        for (int column = 0; column < model->columnCount(); ++column)
            heads << model->headerData(column, Qt::Horizontal).toString();
        EXPECT_EQ(heads, (QStringList{"Index", "Name", "Hysteresis", "Logic Type", "Logic Control",
                                      "Status"}));
        EXPECT_EQ(run.cell(0, 3), QString::fromLatin1(c.firstType));
        EXPECT_TRUE(run.cell(c.lines - 2, 1).startsWith(QStringLiteral("Set Delay=")));
        EXPECT_TRUE(saveScreenshot(&run.window, QString::fromLatin1(c.screenshot)));
    }
    EXPECT_TRUE(run.messages.texts().isEmpty()) << run.messages.texts().join(u'|').toStdString();
    // Print takes the grid along only while every line of it is shown.
    EXPECT_TRUE(run.window.gridPrintable());
    run.window.resize(700, 420);
    QApplication::processEvents();
    EXPECT_FALSE(run.window.gridPrintable());
}

TEST(FrmRelayLogic, StepsStopAtBothEndsAndAFailedReadKeepsTheTree)
{
    WindowRun run;
    // Print before any tree: the window has nothing of a meter kind that draws.
    run.press(FrmRelayLogic::Print);
    ASSERT_EQ(run.messages.texts(), QStringList{"Invalid device type, cannot print."});
    run.messages.clear();

    ASSERT_TRUE(run.window.ShowRelayLogic(0));
    run.press(FrmRelayLogic::Previous);
    EXPECT_EQ(run.messages.texts(), QStringList{"This is the first record"});
    EXPECT_EQ(run.window.session().position(), 0);
    run.press(FrmRelayLogic::Next);
    EXPECT_EQ(run.window.session().position(), 1);
    ASSERT_TRUE(run.window.ShowRelayLogic(run.window.session().count() - 1));
    run.messages.clear();
    run.press(FrmRelayLogic::Next);
    EXPECT_EQ(run.messages.texts(), QStringList{"This is the last record"});

    // The settings are gone from the query's tables: the step says so and the tree stays.
    const qint64 shown = run.window.session().tree()->gIndex;
    run.sim.scratch->database().execute(
        QStringLiteral("DELETE FROM ") +
        SqlIdentifier::quote(run.sim.view.numbers.sliceTable(QStringLiteral("RelayLogDataItem_"))));
    run.messages.clear();
    run.press(FrmRelayLogic::Previous);
    EXPECT_EQ(run.messages.texts(), QStringList{"Cannot find relay setup information."});
    EXPECT_EQ(run.window.session().tree()->gIndex, shown);
    EXPECT_EQ(run.window.session().position(), run.window.session().count() - 1);
    EXPECT_GT(run.window.grid()->model()->rowCount(), 0);
}

TEST(FrmRelayLogic, GraphOfTheRelayGridOpensTheChosenRecord)
{
    RelaySimMeter sim;
    RecordedMessages messages;
    ScopedUserMessages scope(messages);
    RunContext context;
    const QueryNumbers numbers = sim.view.numbers;
    const QList<QVariantMap> rows = sim.relays().rowKeys;
    context.scratch = std::move(sim.scratch);
    RelayLogicMaker::add(context, {});
    ASSERT_TRUE(GraphWindows::has(int(LogKind::Relays)));
    GraphSelection selection{int(LogKind::Relays), numbers, rows, 2, QString()};
    std::unique_ptr<QWidget> opened(GraphWindows::open(selection, nullptr));
    auto* window = qobject_cast<FrmRelayLogic*>(opened.get());
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->session().position(), 2);
    EXPECT_EQ(window->session().tree()->gIndex,
              rows.at(2).value(QStringLiteral("GIndex")).toLongLong());
    // A kind of meter without a tree: the window tells why and does not open.
    context.scratch->database().execute(
        QStringLiteral("UPDATE ") +
        SqlIdentifier::quote(numbers.table(QStringLiteral("LogDevices_"))) +
        QStringLiteral(" SET [DeviceTypeID] = 2"));
    EXPECT_EQ(GraphWindows::open(selection, nullptr), nullptr);
    EXPECT_EQ(
        messages.texts().last(),
        QStringLiteral("Invalid device type #2, it is not a Halyx 12 Series or Unit 10 Talmo+."));
    GraphWindows::remove(int(LogKind::Relays));
}
