// SPDX-License-Identifier: GPL-3.0-or-later
// The input view on simulated meters: the records the simulator wrote, joined with their
// settings, found by either stamp, in every sort order.
#include "query/views/input/InputView.h"

#include "InputSimFixture.h"
#include "platform/Fault.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "query/views/flicker/FlickerView.h"
#include "query/views/limit/LimitView.h"
#include "query/views/pq/PqView.h"
#include "query/views/relay/RelayView.h"
#include "query/views/setup/SetupRecordViews.h"
#include "query/views/snapshot/SnapshotView.h"
#include "store/SchemaCatalog.h"

#include <QFile>
#include <QRegularExpression>

using namespace lorvane;
using namespace lorvane::test;

TEST(InputView, ShowsTheSimulatedInputEventsWithTheirSettings)
{
    SimMeters sim;
    QueryContext c = sim.context({sim.meter(QStringLiteral("Board"))});
    const ViewResult view = InputView::run(c);
    ASSERT_EQ(view.grids.size(), 3);
    const GridTable& inputs = view.grids.at(0);
    EXPECT_EQ(inputs.caption, QStringLiteral("Show Inputs"));
    EXPECT_EQ(inputs.columns.size(), 16);
    // Door and alarm reset each day, the breaker of the outage, the transfer switch.
    EXPECT_EQ(inputs.rows.size(), 6);
    const QStringList names = column(inputs, QStringLiteral("Input Name"));
    EXPECT_EQ(names.count(QStringLiteral("Door Switch")), 2);
    EXPECT_EQ(names.count(QStringLiteral("Alarm Reset")), 2);
    const int breaker = static_cast<int>(names.indexOf(QStringLiteral("Main Breaker")));
    ASSERT_GE(breaker, 0);
    const QVariantMap key = inputs.rowKeys.at(breaker);
    EXPECT_EQ(key.value(QStringLiteral("DT1")).toString(), QStringLiteral("2024-03-05 10:00:00"));
    EXPECT_EQ(key.value(QStringLiteral("ms1")).toInt(), 120);
    EXPECT_EQ(key.value(QStringLiteral("DT2")).toString(), QStringLiteral("2024-03-05 13:00:35"));
    EXPECT_EQ(column(inputs, QStringLiteral("Module Name")).at(breaker),
              QStringLiteral("Input Card 1"));
    EXPECT_EQ(column(inputs, QStringLiteral("Device Name")).at(breaker), QStringLiteral("Board"));
    EXPECT_TRUE(inputs.rows.at(breaker).at(0).endsWith(QStringLiteral(".120")));

    // Date/Time ascending by default: the first stamps never go back.
    for (int r = 1; r < inputs.rowKeys.size(); ++r)
        EXPECT_LE(inputs.rowKeys.at(r - 1).value(QStringLiteral("DT1")).toString(),
                  inputs.rowKeys.at(r).value(QStringLiteral("DT1")).toString());

    // The settings grid holds the four inputs of setting 1, and the one-input view names them.
    EXPECT_EQ(view.grids.at(2).caption, QStringLiteral("Show Input Settings"));
    EXPECT_EQ(view.grids.at(2).rows.size(), 4);
    const GridTable one =
        SetupRecordViews::inputSetting(c.scratch->database(), view.numbers, 1, 1, 0, 0);
    EXPECT_EQ(one.rows.at(0),
              (QStringList{QStringLiteral("Module Name"), QStringLiteral("Input Card 1")}));
    EXPECT_EQ(one.rows.at(1),
              (QStringList{QStringLiteral("Input Name"), QStringLiteral("Main Breaker")}));
    // An input without a setting row shows the heads with empty values.
    const GridTable none =
        SetupRecordViews::inputSetting(c.scratch->database(), view.numbers, 1, 1, 0, 9);
    EXPECT_EQ(none.rows.at(0).at(1), QString());
}

// Fault: the meter's chosen inputs never reached the loader, so the view read every input.
TEST(InputView, ReadsOnlyTheInputsChosenForTheMeter)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Board"));
    QueryContext all = sim.context({meter});
    const GridTable every = InputView::run(all).grids.at(0);
    const QStringList names = column(every, QStringLiteral("Input Name"));
    const QStringList modules = column(every, QStringLiteral("Module Index"));
    const QStringList places = column(every, QStringLiteral("Input Index"));
    QueryContext chosen = sim.context({meter});
    for (const QString& name : {QStringLiteral("Door Switch"), QStringLiteral("Main Breaker")}) {
        const qsizetype row = names.indexOf(name);
        ASSERT_GE(row, 0) << name.toStdString();
        chosen.files[0].items.inputs
            << MeterItems::Channel{modules.at(row).toInt(), places.at(row).toInt()};
    }
    const QStringList shown =
        column(InputView::run(chosen).grids.at(0), QStringLiteral("Input Name"));
    EXPECT_EQ(shown.size(), names.count(QStringLiteral("Door Switch")) +
                                names.count(QStringLiteral("Main Breaker")));
    EXPECT_EQ(shown.size(), 3);
    for (const QString& name : shown)
        EXPECT_TRUE(name == QStringLiteral("Door Switch") || name == QStringLiteral("Main Breaker"))
            << name.toStdString();
}

TEST(InputView, FindsARecordByItsReturnStampAndSortsByDuration)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Board"));
    // The transfer switch goes to Generator at 23:58:30 on day 1 and returns at 00:03:30 on
    // day 2: filed under day 1, it is found by its return alone.
    QueryContext late = sim.context({meter}, "2024-03-04 23:59:00", "2024-03-05 00:10:00");
    const ViewResult crossing = InputView::run(late);
    ASSERT_EQ(crossing.grids.at(0).rows.size(), 1);
    EXPECT_EQ(column(crossing.grids.at(0), QStringLiteral("Input Name")).at(0),
              QStringLiteral("Transfer Switch"));

    QueryContext byDuration = sim.context({meter});
    byDuration.sortColumn = QStringLiteral("Duration");
    byDuration.descending = true;
    const GridTable sorted = InputView::run(byDuration).grids.at(0);
    const QStringList durations = column(sorted, QStringLiteral("Duration ms"));
    ASSERT_EQ(durations.size(), 6);
    for (int r = 1; r < durations.size(); ++r)
        EXPECT_GE(durations.at(r - 1).toDouble(), durations.at(r).toDouble());
    // The two alarm resets of 800 ms are last, the later one first in the reversed order.
    EXPECT_EQ(sorted.rowKeys.at(4).value(QStringLiteral("DT1")).toString(),
              QStringLiteral("2024-03-05 16:45:00"));
    EXPECT_EQ(sorted.rowKeys.at(5).value(QStringLiteral("DT1")).toString(),
              QStringLiteral("2024-03-04 16:45:00"));

    QueryContext wrong = sim.context({meter});
    wrong.sortColumn = QStringLiteral("Value");
    EXPECT_ANY_THROW(InputView::run(wrong));
}

TEST(InputView, EmptyRangeAndVanishedMeterGiveAnEmptyGridWithHeadings)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Board"));
    QueryContext empty = sim.context({meter}, "2023-01-01 00:00:00", "2023-01-02 00:00:00");
    const ViewResult nothing = InputView::run(empty);
    EXPECT_TRUE(nothing.noData);
    EXPECT_TRUE(nothing.rangeText.startsWith(QStringLiteral("No data found: ")));
    EXPECT_EQ(nothing.grids.at(0).columns.size(), 16);
    EXPECT_TRUE(nothing.grids.at(0).rows.isEmpty());

    QueryContext gone = sim.context({meter});
    ASSERT_TRUE(QFile::remove(meter));
    const ViewResult missing = InputView::run(gone);
    EXPECT_TRUE(missing.noData);
    EXPECT_TRUE(missing.grids.at(0).rows.isEmpty());
}

// Fault: a day table missing from the meter file aborted the limit view with the engine's
// words about the scratch file and its internal alias, and the input view skipped the day
// without a word. Every status view now names the meter file and the table.
TEST(InputView, AMissingDayTableIsNamedWithItsMeterFileInEveryView)
{
    struct Case
    {
        LogKind kind;
        ViewResult (*run)(QueryContext&);
        /// The table taken away; the day table of the kind when empty.
        QString table;
    };
    const Case cases[] = {
        {LogKind::Limits, &LimitView::run, {}},
        {LogKind::Inputs, &InputView::run, {}},
        {LogKind::Relays, &RelayView::run, {}},
        {LogKind::Flicker, &FlickerView::run, {}},
        // An hour flagged in the day's row whose value table is gone was skipped silently.
        {LogKind::Snapshots,
         [](QueryContext& c) { return SnapshotView(c, LogKind::Snapshots).load(); },
         SchemaCatalog::hourValueTable(LogKind::Snapshots, 1, 6)}};
    SimMeters sim;
    for (const Case& c : cases) {
        const QString table = c.table.isEmpty() ? SchemaCatalog::dayTable(c.kind, 1) : c.table;
        SCOPED_TRACE(table.toStdString());
        const QString meter = sim.meter(QStringLiteral("Damaged%1").arg(int(c.kind)));
        {
            SqliteDatabase db(meter, SqliteDatabase::Mode::ReadWrite);
            ASSERT_TRUE(db.tableExists(table));
            db.execute(QStringLiteral("DROP TABLE ") + SqlIdentifier::quote(table));
        }
        QueryContext context = sim.context({meter});
        try {
            c.run(context);
            ADD_FAILURE() << "no fault for the missing table";
        } catch (const Fault& fault) {
            EXPECT_TRUE(fault.message().contains(meter)) << fault.message().toStdString();
            EXPECT_TRUE(fault.message().contains(table)) << fault.message().toStdString();
            EXPECT_FALSE(fault.message().contains(QStringLiteral("TempQuery")));
            EXPECT_FALSE(fault.message().contains(QStringLiteral("meter0")));
        }
    }
}

// Fault: PQ, limit and flicker values were printed with six significant digits (exponent form
// for large values) or fifteen, whatever the `DataFormat` setting said.
TEST(InputView, ValueColumnsOfEveryGridFollowTheDataFormatSetting)
{
    struct Case
    {
        ViewResult (*run)(QueryContext&);
        QStringList headings;
    };
    const Case cases[] = {
        {&LimitView::run, {QStringLiteral("Value")}},
        {&PqView::run, {QStringLiteral("Value"), QStringLiteral("% of Full Scale")}},
        {&FlickerView::run, {QStringLiteral("Max Pst Va"), QStringLiteral("Min Plt Vc")}}};
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Formats"));
    for (const auto& [format, shape] : {std::pair{"0.000", "^-?\\d{1,3}(,\\d{3})*\\.\\d{3}$"},
                                        std::pair{"0", "^-?\\d{1,3}(,\\d{3})*$"}}) {
        QueryContext context = sim.context({meter});
        context.dataFormat = QString::fromLatin1(format);
        const QRegularExpression expected(QString::fromLatin1(shape));
        for (const Case& c : cases) {
            const GridTable grid = c.run(context).grids.value(c.run == &FlickerView::run ? 1 : 0);
            for (const QString& heading : c.headings) {
                SCOPED_TRACE((grid.caption + QLatin1Char('/') + heading).toStdString());
                const QStringList cells = column(grid, heading);
                ASSERT_FALSE(cells.isEmpty());
                for (const QString& cell : cells) {
                    if (!cell.isEmpty()) {
                        EXPECT_TRUE(expected.match(cell).hasMatch()) << cell.toStdString();
                    }
                }
            }
        }
    }
}
