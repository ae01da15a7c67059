// SPDX-License-Identifier: GPL-3.0-or-later
// The log grid session on simulated meters: paging, buffered presses that read no meter file,
// sorts refilled from the query tables, and the texts of each kind.
#include "gridview/LogViewSession.h"

#include "gridview/LogViewTexts.h"
#include "query/InputSimFixture.h"
#include "query/engine/SortOptions.h"
#include "query/selection/TopQueryBuffer.h"
#include "store/LogKind.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

using namespace lorvane;
using namespace lorvane::test;

namespace {

/// The press of `button` over the whole two simulated days of `meter`.
ViewDispatch::Request press(int button, const QString& meter,
                            const char* start = "2024-03-04 00:00:00",
                            const char* end = "2024-03-05 23:59:59")
{
    ViewDispatch::Request request;
    request.action = ViewDispatch::Action::Grid;
    request.button = button;
    request.logKind = ViewDispatch::logKindOf(button);
    request.start = simTime(start);
    request.end = simTime(end);
    LogFileEntry entry;
    entry.dbPath = meter;
    entry.deviceTypeId = 3;
    entry.hardwareName = QStringLiteral("Meter");
    entry.used = true;
    request.files << entry;
    request.itemIds = {20617, 20621, 20625, 21017};
    return request;
}

QueryContext base(SimMeters& sim, int tempLogRecSize = 4500)
{
    QueryContext c;
    c.scratch = sim.scratch.get();
    c.tempLogRecSize = tempLogRecSize;
    return c;
}

constexpr int snapshotButton = 1;
constexpr int limitButton = 3;

} // namespace

TEST(LogViewSession, SnapshotPagesUpAndDownToTheEnd)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Paged"));
    LogViewSession session(base(sim, 200));
    TopQueryBuffer buffer;
    session.setRequest(press(snapshotButton, meter), &buffer);
    session.LoadQuery(true, nullptr);
    ASSERT_EQ(session.result().page, 1);
    ASSERT_FALSE(session.result().grids.first().rows.isEmpty());
    EXPECT_FALSE(session.canUp());
    ASSERT_TRUE(session.canDown());
    EXPECT_EQ(buffer.row(snapshotButton).queryIndex, session.result().numbers.query);
    // &Graph hands the query to the power graph set-up, with or without a row chosen.
    const LogViewSession::GraphAction graph = session.graph(-1);
    ASSERT_EQ(graph.kind, LogViewSession::GraphAction::Kind::Graph);
    EXPECT_EQ(graph.selection.logKind, int(LogKind::Snapshots));
    EXPECT_EQ(graph.selection.numbers.query, session.result().numbers.query);

    // &Up on page 1 changes nothing.
    const QStringList firstRow = session.result().grids.first().rows.first();
    EXPECT_FALSE(session.step(-1, nullptr));
    EXPECT_EQ(session.result().page, 1);

    // &Down to the end: every page starts after the one before, the last one ends the range.
    QString lastTime = session.result().grids.first().rows.last().first();
    int guard = 0;
    while (session.canDown() && guard++ < 100) {
        session.step(1, nullptr);
        if (!session.canDown())
            break;
        const QString first = session.result().grids.first().rows.first().first();
        EXPECT_GT(first, lastTime);
        lastTime = session.result().grids.first().rows.last().first();
    }
    const int pages = session.result().pages;
    EXPECT_GT(pages, 2);
    EXPECT_TRUE(session.result().allRead);
    EXPECT_EQ(session.result().page, pages);
    EXPECT_FALSE(session.canDown());

    // Back up to page 1 from the tables: the same rows as at first.
    while (session.canUp())
        session.step(-1, nullptr);
    EXPECT_EQ(session.result().page, 1);
    EXPECT_EQ(session.result().grids.first().rows.first(), firstRow);
    EXPECT_EQ(session.result().pages, pages);
}

TEST(LogViewSession, ABufferedPressReadsNoMeterFile)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Buffered"));
    LogViewSession session(base(sim));
    TopQueryBuffer buffer;
    for (int button : {snapshotButton, limitButton}) {
        session.setRequest(press(button, meter), &buffer);
        session.LoadQuery(true, nullptr);
    }
    const QList<QStringList> limits = session.result().grids.first().rows;
    ASSERT_FALSE(limits.isEmpty());

    // With the meter file gone, the buffered presses show what they showed.
    ASSERT_TRUE(QFile::rename(meter, meter + QStringLiteral(".gone")));
    ViewDispatch::Request again = press(snapshotButton, meter);
    again.fresh = false;
    session.setRequest(again, &buffer);
    session.LoadQuery(false, nullptr);
    EXPECT_EQ(session.logKind(), LogKind::Snapshots);
    EXPECT_FALSE(session.result().grids.first().rows.isEmpty());

    again = press(limitButton, meter);
    again.fresh = false;
    session.setRequest(again, &buffer);
    session.LoadQuery(false, nullptr);
    EXPECT_EQ(session.result().grids.first().rows, limits);

    // A fresh press of the same view now finds nothing to read.
    session.setRequest(press(limitButton, meter), &buffer);
    try {
        session.LoadQuery(true, nullptr);
        EXPECT_TRUE(session.result().grids.first().rows.isEmpty());
    } catch (const std::exception&) {
        // A missing file may also be refused outright; either way nothing was shown from it.
    }

    // A cleared buffer makes the next press read again even when asked not to.
    buffer.ClearTopQueryBuffer(true);
    again = press(snapshotButton, meter);
    again.fresh = false;
    session.setRequest(again, &buffer);
    try {
        session.LoadQuery(false, nullptr);
        EXPECT_TRUE(session.result().grids.first().rows.isEmpty());
    } catch (const std::exception&) {
    }
}

TEST(LogViewSession, SortsRefillFromTheTablesAndKeepThePage)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Sorted"));
    LogViewSession session(base(sim));
    TopQueryBuffer buffer;
    session.setRequest(press(limitButton, meter), &buffer);
    session.LoadQuery(true, nullptr);
    const GridTable byTime = session.result().grids.first();
    ASSERT_GT(byTime.rows.size(), 2);
    ASSERT_TRUE(QFile::rename(meter, meter + QStringLiteral(".gone")));

    SortState sort;
    sort.item = SortOptions::itemIndex(LogKind::Limits, QStringLiteral("Value"));
    ASSERT_GT(sort.item, 0);
    session.setSort(sort);
    // A copy: the next sort replaces the session's result.
    const GridTable byValue = session.result().grids.first();
    ASSERT_EQ(byValue.rows.size(), byTime.rows.size());
    const int value = int(byValue.columns.indexOf(QStringLiteral("Value")));
    const int start = int(byValue.columns.indexOf(QStringLiteral("Start Date/Time")));
    ASSERT_GE(value, 0);
    int ties = 0;
    for (int r = 1; r < byValue.rows.size(); ++r) {
        const double before = byValue.rows[r - 1][value].toDouble();
        const double now = byValue.rows[r][value].toDouble();
        EXPECT_LE(before, now) << "row " << r;
        if (before == now) {
            ++ties;
            EXPECT_LE(byValue.rows[r - 1][start], byValue.rows[r][start]) << "row " << r;
        }
    }
    EXPECT_EQ(session.sort().item, sort.item);
    // Descending reverses both the key and the time within it.
    sort.descending = true;
    session.setSort(sort);
    const GridTable& reversed = session.result().grids.first();
    ASSERT_EQ(reversed.rows.size(), byValue.rows.size());
    EXPECT_EQ(reversed.rows.last()[value], byValue.rows.first()[value]);
    EXPECT_EQ(reversed.rows.first()[value], byValue.rows.last()[value]);
    for (int r = 1; r < reversed.rows.size(); ++r) {
        if (reversed.rows[r - 1][value] == reversed.rows[r][value]) {
            EXPECT_GE(reversed.rows[r - 1][start], reversed.rows[r][start]) << "row " << r;
        }
    }
    EXPECT_GT(ties, 0) << "the simulated limits should repeat a value";
}

TEST(LogViewSession, ASnapshotSortKeepsThePageNumber)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("SortPaged"));
    LogViewSession session(base(sim, 200));
    TopQueryBuffer buffer;
    session.setRequest(press(snapshotButton, meter), &buffer);
    session.LoadQuery(true, nullptr);
    session.step(1, nullptr);
    ASSERT_EQ(session.result().page, 2);
    const QStringList items = session.sortItems();
    ASSERT_GT(items.size(), 1);
    EXPECT_EQ(items.first(), QStringLiteral("Date/Time"));
    SortState sort;
    sort.item = 1;
    session.setSort(sort);
    EXPECT_EQ(session.result().page, 2);
    EXPECT_EQ(session.sort().item, 1);
    const GridTable& grid = session.result().grids.first();
    const int key = int(grid.columns.indexOf(items.at(1)));
    ASSERT_GE(key, 0);
    for (int r = 1; r < grid.rows.size(); ++r) {
        if (!grid.rows[r - 1][key].isEmpty() && !grid.rows[r][key].isEmpty()) {
            EXPECT_LE(grid.rows[r - 1][key].toDouble(), grid.rows[r][key].toDouble());
        }
    }
    // &Down after the sort reads the next slice in time order, then shows it in the sort.
    session.step(1, nullptr);
    EXPECT_EQ(session.result().page, 3);
    EXPECT_EQ(session.sort().item, 1);
}

TEST(LogViewSession, CaptionsTitlesAndGraphMessagesOfEachKind)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Kinds"));
    LogViewSession session(base(sim));
    TopQueryBuffer buffer;
    struct Expect
    {
        int button;
        const char* caption;
        const char* help;
        const char* emptyGraph; // "" when the kind has no message
    };
    const QList<Expect> kinds{
        {1, "Show Snapshots", "LRHistTrends", "There are no data to graph."},
        {3, "Show Limits", "LRLimits", ""},
        {7, "Show Inputs", "LRStatChange", ""},
        {8, "Show Relays", "LRControl", "There are no relays."},
        {11, "Show Flicker Max/Min", "LRFlicker", "There are no data to graph."},
        {4, "Show Waveforms", "LRWaveformLog", "There are no waveforms."},
        {5, "Show PQs", "LRpqLogs", ""},
        {12, "Show System Events", "LRSystemEvtLog", "There are no data to graph."},
        {14, "EN50160 / IEC 61000-4-30 Information", "LREN50160Log", ""},
    };
    for (const Expect& e : kinds) {
        SCOPED_TRACE(e.button);
        const LogKind kind = ViewDispatch::logKindOf(e.button);
        EXPECT_EQ(LogViewTexts::captions(kind).first(), QString::fromLatin1(e.caption));
        EXPECT_EQ(LogViewTexts::helpTopic(kind), QString::fromLatin1(e.help));
        // An empty range: headings only, "No data found", and the kind's empty message.
        session.setRequest(press(e.button, meter, "2020-01-01 00:00:00", "2020-01-02 00:00:00"),
                           &buffer);
        session.LoadQuery(true, nullptr);
        EXPECT_TRUE(session.result().noData);
        EXPECT_TRUE(session.result().rangeText.startsWith(QStringLiteral("No data found: ")));
        EXPECT_TRUE(session.result().grids.first().rows.isEmpty());
        EXPECT_FALSE(session.result().grids.first().columns.isEmpty());
        EXPECT_EQ(session.graph(-1).message, QString::fromLatin1(e.emptyGraph));
        // The PQ graph opens on an empty query too: the envelope alone.
        EXPECT_EQ(session.graph(-1).kind == LogViewSession::GraphAction::Kind::Graph,
                  kind == LogKind::PowerQuality);
    }
    EXPECT_EQ(LogViewTexts::windowTitle(QStringLiteral("Lorvane"), LogKind::DatabaseStatus),
              QStringLiteral("Lorvane - [Database Status]"));
    EXPECT_EQ(LogViewTexts::windowTitle(QStringLiteral("Lorvane"), LogKind::Demand),
              QStringLiteral("Lorvane - [Demands]"));
    EXPECT_EQ(
        LogViewTexts::captions(LogKind::PowerQuality),
        (QStringList{QStringLiteral("Show PQs"), QStringLiteral("Show PQ/Waveform Settings")}));
    EXPECT_EQ(LogViewTexts::helpTopic(LogKind::EN50160), QStringLiteral("LREN50160Log"));

    // The compliance view lists the meter's test of its two days once the range holds it.
    session.setRequest(press(14, meter, "2024-03-04 00:00:00", "2024-03-06 00:00:00"), &buffer);
    session.LoadQuery(true, nullptr);
    ASSERT_EQ(session.result().grids.first().rows.size(), 1);
    EXPECT_EQ(session.result().grids.first().rows.first().first(),
              QStringLiteral("2024-03-04 00:00:00"));
}

TEST(LogViewSession, WaveformHandOverDetailsAndStatusTexts)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Waves"));
    LogViewSession session(base(sim));
    TopQueryBuffer buffer;

    session.setRequest(press(4, meter), &buffer);
    session.LoadQuery(true, nullptr);
    const GridTable& waves = session.result().grids.first();
    ASSERT_FALSE(waves.rows.isEmpty());
    EXPECT_EQ(session.graph(-1).message, QStringLiteral("Please select a waveform to graph."));
    EXPECT_EQ(session.checkMessage(-1), QStringLiteral("Please select a waveform record."));
    EXPECT_TRUE(session.checkMessage(0).isEmpty());
    const int last = int(waves.rows.size()) - 1;
    // Check marks: none without a row; a row is held by its keys until released or reloaded.
    EXPECT_FALSE(session.bind(0, -1));
    EXPECT_FALSE(session.bound(0).has_value());
    ASSERT_TRUE(session.bind(1, last));
    ASSERT_TRUE(session.bound(1).has_value());
    EXPECT_FALSE(session.bound(0).has_value());
    EXPECT_EQ(session.bound(1)->keys, waves.rowKeys.at(last));
    EXPECT_EQ(session.bound(1)->cells, waves.rows.at(last));
    EXPECT_EQ(session.bound(1)->numbers.query, session.result().numbers.query);
    EXPECT_FALSE(session.bind(2, 0));
    session.release(1);
    EXPECT_FALSE(session.bound(1).has_value());
    ASSERT_TRUE(session.bind(0, 0));
    const LogViewSession::GraphAction open = session.graph(last);
    ASSERT_EQ(open.kind, LogViewSession::GraphAction::Kind::Graph);
    EXPECT_EQ(open.selection.logKind, int(LogKind::Waveform));
    EXPECT_EQ(open.selection.position, last);
    EXPECT_EQ(open.selection.rows, waves.rowKeys);
    EXPECT_EQ(open.selection.numbers.query, session.result().numbers.query);
    EXPECT_EQ(open.selection.caption, session.result().rangeText);
    const auto setting = session.rowDetail(0, 0);
    ASSERT_TRUE(setting.has_value());
    EXPECT_EQ(setting->rows.at(1).first(), QStringLiteral("HookUp"));
    // The type choice narrows the rows from the tables, and "All Waveforms" brings them back.
    const qsizetype all = waves.rows.size();
    session.setTypeChoice(2);
    EXPECT_EQ(session.typeChoice(), 2);
    const qsizetype transients = session.result().grids.first().rows.size();
    session.setTypeChoice(1);
    EXPECT_LE(session.result().grids.first().rows.size() + transients, all);
    session.setTypeChoice(0);
    EXPECT_EQ(session.result().grids.first().rows.size(), all);

    // PQ: a double click on a record lists its captures.
    session.setRequest(press(5, meter), &buffer);
    session.LoadQuery(true, nullptr);
    EXPECT_FALSE(session.bound(0).has_value()) << "a new load releases the marks";
    EXPECT_EQ(session.checkMessage(-1), QStringLiteral("Please select a PQ record."));
    if (!session.result().grids.first().rows.isEmpty()) {
        const auto list = session.rowDetail(0, 0);
        ASSERT_TRUE(list.has_value());
        EXPECT_EQ(list->caption, QStringLiteral("Show Waveforms"));
        // &Graph draws the whole query, with or without a chosen row.
        const LogViewSession::GraphAction pq = session.graph(-1);
        ASSERT_EQ(pq.kind, LogViewSession::GraphAction::Kind::Graph);
        EXPECT_EQ(pq.selection.logKind, int(LogKind::PowerQuality));
        EXPECT_EQ(pq.selection.numbers.query, session.result().numbers.query);
    }

    // Inputs: the input setting of the row.
    session.setRequest(press(7, meter), &buffer);
    session.LoadQuery(true, nullptr);
    if (!session.result().grids.first().rows.isEmpty()) {
        const auto input = session.rowDetail(0, 0);
        ASSERT_TRUE(input.has_value());
        EXPECT_EQ(input->rows.first().first(), QStringLiteral("Module Name"));
    }

    // Snapshots: "Record {n}, {count}"; no check marks.
    session.setRequest(press(snapshotButton, meter), &buffer);
    session.LoadQuery(true, nullptr);
    EXPECT_FALSE(session.bind(0, 0));
    EXPECT_TRUE(session.checkMessage(-1).isEmpty());
    const int count = int(session.result().grids.first().rows.size());
    EXPECT_EQ(session.statusText(0, 2), QStringLiteral("Record 3, %1").arg(count));
    EXPECT_TRUE(session.statusText(0, count).isEmpty());
}

TEST(LogViewSession, RecordTypeChoicesShowTheTypeIdOfTheirName)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Typed"));
    LogViewSession session(base(sim));
    TopQueryBuffer buffer;
    session.setRequest(press(snapshotButton, meter), &buffer);
    session.LoadQuery(true, nullptr);
    const int all = int(session.result().grids.first().rows.size());
    ASSERT_GT(all, 0);
    const int type = int(session.result().grids.first().columns.indexOf("Record Type"));
    ASSERT_GE(type, 0);

    // The simulated first interval log writes its ordinary records with TypeID 2, "Log 1".
    const QStringList groupings = SortOptions::snapshotGroupings();
    SortState sort;
    sort.recordType = int(groupings.indexOf(QStringLiteral("Log 1")));
    session.setSort(sort);
    const GridTable log1 = session.result().grids.first();
    ASSERT_FALSE(log1.rows.isEmpty());
    for (const QStringList& row : log1.rows)
        EXPECT_EQ(row.at(type), QStringLiteral("2"));
    // "Log 2" is the demand log's type: none of it among the snapshots.
    sort.recordType = int(groupings.indexOf(QStringLiteral("Log 2")));
    session.setSort(sort);
    EXPECT_TRUE(session.result().grids.first().rows.isEmpty());

    // The "Snapshot Type" list names the same types; "User Defined" shows every record.
    const QStringList choices = session.typeChoices();
    session.setTypeChoice(int(choices.indexOf(QStringLiteral("Log 1"))));
    EXPECT_EQ(session.typeChoice(), choices.indexOf(QStringLiteral("Log 1")));
    EXPECT_EQ(session.result().grids.first().rows.size(), log1.rows.size());
    EXPECT_EQ(session.result().grids.first().rows.first().at(type), QStringLiteral("2"));
    session.setTypeChoice(0);
    EXPECT_EQ(session.result().grids.first().rows.size(), all);
}

// Fault: the relay setting compared the files' 0-based positions with the rows' 1-based
// `DeviceIndex`, so with two meters each row got the other meter's device type and the gate
// rows appeared on the wrong meter.
TEST(LogViewSession, RelaySettingTakesTheDeviceTypeOfTheRowsOwnMeter)
{
    SimMeters sim;
    ViewDispatch::Request request = press(8, sim.meter(QStringLiteral("Plain"), 3));
    LogFileEntry gated = request.files.first();
    gated.dbPath = sim.meter(QStringLiteral("Gated"), 4);
    gated.deviceTypeId = 0; // a type with a gate table
    gated.deviceIndex = 1;
    request.files << gated;
    LogViewSession session(base(sim));
    TopQueryBuffer buffer;
    session.setRequest(request, &buffer);
    session.LoadQuery(true, nullptr);
    const GridTable relays = session.result().grids.first();
    EXPECT_EQ(session.graph(-1).message, QStringLiteral("Please select a relay record  to graph."));
    // &Graph hands the relay logic window every relay row and the chosen one.
    const LogViewSession::GraphAction open = session.graph(1);
    ASSERT_EQ(open.kind, LogViewSession::GraphAction::Kind::Graph);
    EXPECT_EQ(open.selection.logKind, int(LogKind::Relays));
    EXPECT_EQ(open.selection.position, 1);
    EXPECT_EQ(open.selection.rows, relays.rowKeys);
    QSet<qint64> seen;
    for (int row = 0; row < relays.rowKeys.size(); ++row) {
        const qint64 device =
            relays.rowKeys.at(row).value(QStringLiteral("DeviceIndex")).toLongLong();
        if (seen.contains(device))
            continue;
        seen.insert(device);
        SCOPED_TRACE(device);
        const auto setting = session.rowDetail(0, row);
        ASSERT_TRUE(setting.has_value());
        const bool gateRows =
            std::any_of(setting->rows.cbegin(), setting->rows.cend(), [](const QStringList& line) {
                return line.first() == QStringLiteral("Gate A");
            });
        EXPECT_EQ(gateRows, device == 2);
    }
    EXPECT_EQ(seen, (QSet<qint64>{1, 2}));
}

TEST(LogViewSession, SnapshotGraphHandsEachDataColumnWithItsMeterAndRangeToTheTrend)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Trend"));
    LogViewSession session(base(sim));
    TopQueryBuffer buffer;
    session.setRequest(press(snapshotButton, meter), &buffer);
    session.LoadQuery(true, nullptr);
    const LogViewSession::GraphAction action = session.graph(-1);
    ASSERT_EQ(action.kind, LogViewSession::GraphAction::Kind::Graph);
    EXPECT_EQ(action.selection.logKind, int(LogKind::Snapshots));
    QList<qint64> ids;
    for (const QVariantMap& column : action.selection.rows) {
        ids << column.value(QStringLiteral("DataID")).toLongLong();
        EXPECT_EQ(column.value(QStringLiteral("DbPath")).toString(), meter);
        EXPECT_EQ(column.value(QStringLiteral("From")).toDateTime(),
                  simTime("2024-03-04 00:00:00"));
        EXPECT_EQ(column.value(QStringLiteral("To")).toDateTime(), simTime("2024-03-05 23:59:59"));
    }
    EXPECT_EQ(ids, (QList<qint64>{20617, 20621, 20625, 21017}));
}
