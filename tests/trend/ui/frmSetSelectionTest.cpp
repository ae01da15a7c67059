// SPDX-License-Identifier: GPL-3.0-or-later
// The historical overview window over a simulated meter.
#include "trend/ui/frmSetSelection.h"

#include "../TrendSimMeter.h"
#include "platform/UserMessages.h"
#include "platform/WorkGuard.h"
#include "support/ui/Screenshot.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace lorvane {
namespace {

using test::TrendSimMeter;

TEST(frmSetSelectionTest, AnalyzeAfterAskingThenViewTheChosenSets)
{
    TrendSimMeter meter(2, 30, 4);
    WorkGuard work;
    RecordedMessages messages;
    ScopedUserMessages scope(messages);
    frmSetSelection window(work);
    window.show();
    window.entryFilename()->setText(meter.path());
    QPushButton* view = window.findChild<QPushButton*>(QStringLiteral("CmdView"));
    QTest::mouseClick(view, Qt::LeftButton);
    EXPECT_EQ(messages.texts().last(), QStringLiteral("No Sets Loaded"));

    messages.setAnswer(false);
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("CmdAnalyze")), Qt::LeftButton);
    EXPECT_EQ(window.gridAnalysis()->rowCount(), 0) << "No writes nothing";
    messages.setAnswer(true);
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("CmdAnalyze")), Qt::LeftButton);
    ASSERT_GT(window.gridAnalysis()->rowCount(), 0);
    EXPECT_EQ(window.listStatus()->item(window.listStatus()->count() - 1)->text().trimmed(),
              QStringLiteral("Completed."));
    const qint32 first = meter.dataIds().first();
    int row = -1;
    for (int r = 0; r < window.gridAnalysis()->rowCount(); ++r)
        if (window.gridAnalysis()->item(r, 0)->text() == QString::number(first))
            row = r;
    ASSERT_GE(row, 0);
    EXPECT_EQ(window.gridAnalysis()->item(row, 3)->text().toLongLong(),
              meter.rowsOf(first, TrendSimMeter::at(0, 0), TrendSimMeter::at(1, 23, 59)));
    EXPECT_TRUE(test::saveScreenshot(&window, QStringLiteral("trend-historical-overview")));

    QSignalSpy spy(&window, &frmSetSelection::viewRequested);
    window.gridAnalysis()->selectRow(row);
    window.setRange(TrendSimMeter::at(1, 0), TrendSimMeter::at(1, 6));
    QTest::mouseClick(view, Qt::LeftButton);
    ASSERT_EQ(spy.count(), 1);
    const auto request = spy.first().first().value<TrendRequest>();
    EXPECT_EQ(request.dataIds, QList<qint32>{first});
    EXPECT_EQ(request.from, TrendSimMeter::at(1, 0));
    EXPECT_EQ(request.to, TrendSimMeter::at(1, 6));
    EXPECT_EQ(request.meters.first().dbPath, meter.path());
}

} // namespace
} // namespace lorvane
