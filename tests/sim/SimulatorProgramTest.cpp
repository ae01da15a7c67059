// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the real lorvane-sim and checks the files it writes with plain SQL against the storage
// contract and against what docs/SIMULATOR.md promises.
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "store/MeterSchema.h"
#include "store/SchemaCatalog.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::runProgram;

namespace {

QString q(const QString& name)
{
    return SqlIdentifier::quote(name);
}

/// Writes a meter with lorvane-sim; fails the test when the program does not succeed.
QString simulate(const QTemporaryDir& dir, const QString& name, const QStringList& extra)
{
    const QString out = dir.filePath(name);
    const auto result = runProgram(QStringLiteral("lorvane-sim"),
                                   QStringList{QStringLiteral("--out"), out} + extra);
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_TRUE(result.err.isEmpty()) << result.err.toStdString();
    EXPECT_TRUE(result.out.isEmpty()) << "prints nothing without --verbose";
    return out;
}

const QStringList smallMeter{
    QStringLiteral("--days"), QStringLiteral("2"),        QStringLiteral("--interval-minutes"),
    QStringLiteral("15"),     QStringLiteral("--points"), QStringLiteral("12")};

qint64 count(SqliteDatabase& db, const QString& sql, const QVariantList& values = {})
{
    return db.scalar(sql, values).toLongLong();
}

/// Every column of the schema whose type is a date, by name.
QSet<QString> dateColumns()
{
    const MeterSchema schema(9.1);
    QList<TableLayout> layouts = schema.fileTables();
    layouts << schema.limitsLog() << schema.pqLog() << schema.waveformLog();
    QSet<QString> names;
    for (const TableLayout& layout : layouts) {
        for (const ColumnLayout& c : layout.columns()) {
            if (c.type == ColumnType::Date)
                names.insert(c.name.toLower());
        }
    }
    return names;
}

/// A dump of every table, in name and row order, to compare two files.
QStringList dump(const QString& path)
{
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
    QStringList lines;
    for (const QString& table : db.tables()) {
        SqlStatement rows =
            db.prepare(QStringLiteral("SELECT * FROM %1 ORDER BY rowid").arg(q(table)));
        while (rows.next()) {
            QStringList cells{table};
            for (int c = 0; c < rows.columnCount(); ++c)
                cells << rows.value(c).toString();
            lines << cells.join(QLatin1Char('|'));
        }
    }
    return lines;
}

} // namespace

TEST(SimulatorProgram, StandardFileKeepsTheStorageContract)
{
    QTemporaryDir dir;
    const QString path = simulate(dir, QStringLiteral("m.DB"), smallMeter);
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);

    EXPECT_NEAR(db.scalar(QStringLiteral("SELECT Version FROM ID_Table")).toDouble(), 8.6, 1e-9);
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT typeof(Address) FROM DeviceInformation")).toString(),
              QStringLiteral("text"));

    // Dates: 19-character texts wherever a date column holds a value.
    const QSet<QString> dates = dateColumns();
    int checked = 0;
    for (const QString& table : db.tables()) {
        for (const QString& column : db.columns(table)) {
            if (!dates.contains(column.toLower()))
                continue;
            ++checked;
            EXPECT_EQ(
                count(db, QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2 IS NOT NULL AND "
                                         "(typeof(%2) <> 'text' OR %2 NOT GLOB "
                                         "'[12][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9] "
                                         "[0-2][0-9]:[0-5][0-9]:[0-5][0-9]' OR length(%2) <> 19)")
                              .arg(q(table), q(column))),
                0)
                << table.toStdString() << "." << column.toStdString();
        }
    }
    EXPECT_GT(checked, 50);

    // Hourly masters: Hour_h set exactly when hour h's tables exist, Recs_h their instants.
    for (LogKind kind : {LogKind::Snapshots, LogKind::Demand}) {
        const QString master = SchemaCatalog::masterTable(static_cast<int>(kind));
        SqlStatement rows = db.prepare(QStringLiteral("SELECT * FROM %1").arg(q(master)));
        int days = 0;
        while (rows.next()) {
            ++days;
            const qint64 n = rows.value(QStringLiteral("LogTablesIndex")).toLongLong();
            qint64 sum = 0;
            for (int h = 0; h < 24; ++h) {
                const QString index = SchemaCatalog::hourTimeIndexTable(kind, n, h);
                const QString values = SchemaCatalog::hourValueTable(kind, n, h);
                const qint64 flag = rows.value(QStringLiteral("Hour_%1").arg(h)).toLongLong();
                const QVariant recs = rows.value(QStringLiteral("Recs_%1").arg(h));
                ASSERT_EQ(recs.typeId(), QMetaType::LongLong) << "counts are integers";
                EXPECT_EQ(flag == -1, db.tableExists(index)) << index.toStdString();
                EXPECT_EQ(flag == -1, db.tableExists(values)) << values.toStdString();
                EXPECT_TRUE(flag == -1 || flag == 0);
                if (flag == -1) {
                    EXPECT_EQ(count(db, QStringLiteral("SELECT COUNT(*) FROM %1").arg(q(index))),
                              recs.toLongLong());
                    EXPECT_EQ(count(db, QStringLiteral("SELECT COUNT(*) FROM %1 h JOIN %2 v ON "
                                                       "v.[Date/TimeIndex] = h.[Date/TimeIndex]")
                                            .arg(q(index), q(values))),
                              count(db, QStringLiteral("SELECT COUNT(*) FROM %1").arg(q(values))))
                        << "every value row has its instant";
                }
                sum += recs.toLongLong();
            }
            EXPECT_EQ(rows.value(QStringLiteral("Records")).toLongLong(), sum);
        }
        EXPECT_EQ(days, 2) << master.toStdString();
    }
    // 15-minute snapshots: 96 instants on day 1, the three outage hours missing on day 2.
    EXPECT_EQ(
        count(db, QStringLiteral("SELECT Records FROM AllHistoricalLogs WHERE LogTablesIndex = 1")),
        96);
    EXPECT_EQ(
        count(db, QStringLiteral("SELECT Records FROM AllHistoricalLogs WHERE LogTablesIndex = 2")),
        84);
    EXPECT_EQ(count(db, QStringLiteral("SELECT Hour_10 + Hour_11 + Hour_12 FROM AllHistoricalLogs "
                                       "WHERE [Date/Time] = '2024-03-05 00:00:00'")),
              0);
    EXPECT_EQ(count(db, QStringLiteral("SELECT COUNT(*) FROM HistLog_1_0")), 4 * 12);

    // Day masters: HTable -1 with the table present, Recs and Records its row count, the span
    // the first and last stamps.
    for (int kind = 5; kind <= 11; ++kind) {
        const QString master = SchemaCatalog::masterTable(kind);
        SqlStatement rows = db.prepare(QStringLiteral("SELECT * FROM %1").arg(q(master)));
        int days = 0;
        while (rows.next()) {
            ++days;
            const QString table =
                SchemaCatalog::dayTable(static_cast<LogKind>(kind),
                                        rows.value(QStringLiteral("LogTablesIndex")).toLongLong());
            ASSERT_TRUE(db.tableExists(table)) << table.toStdString();
            EXPECT_EQ(rows.value(QStringLiteral("HTable")).toLongLong(), -1);
            const qint64 n = count(db, QStringLiteral("SELECT COUNT(*) FROM %1").arg(q(table)));
            EXPECT_EQ(rows.value(QStringLiteral("Recs")).typeId(), QMetaType::LongLong);
            EXPECT_EQ(rows.value(QStringLiteral("Recs")).toLongLong(), n) << table.toStdString();
            EXPECT_EQ(rows.value(QStringLiteral("Records")).toLongLong(), n);
            EXPECT_LE(rows.value(QStringLiteral("StartDate/Time")).toString(),
                      rows.value(QStringLiteral("EndDate/Time")).toString());
        }
        EXPECT_GE(days, 1) << master.toStdString();
    }
    EXPECT_EQ(
        count(db, QStringLiteral(
                      "SELECT COUNT(*) FROM AllLimitsLogs WHERE [StartDate/Time] <> "
                      "(SELECT MIN([StartDate/Time]) FROM LimitsLog_1) AND LogTablesIndex = 1")),
        0);
}

TEST(SimulatorProgram, EventLogsTellOneConsistentStory)
{
    QTemporaryDir dir;
    const QString path = simulate(dir, QStringLiteral("m.DB"),
                                  {QStringLiteral("--days"), QStringLiteral("3"),
                                   QStringLiteral("--points"), QStringLiteral("50")});
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);

    // Every limit record joins its setting; the outage shows as three low voltage records.
    qint64 limits = 0;
    for (int n = 1; n <= 3; ++n) {
        const QString t = QStringLiteral("LimitsLog_%1").arg(n);
        limits += count(db, QStringLiteral("SELECT COUNT(*) FROM %1").arg(q(t)));
        EXPECT_EQ(
            count(db, QStringLiteral("SELECT COUNT(*) FROM %1 l LEFT JOIN LimitsLogDataItem i "
                                     "ON i.LinkIndex = l.LinkIndex WHERE i.LinkIndex IS NULL")
                          .arg(q(t))),
            0);
    }
    EXPECT_GT(limits, 3);
    EXPECT_EQ(count(db, QStringLiteral(
                            "SELECT COUNT(*) FROM LimitsLog_2 WHERE [StartDate/Time] = "
                            "'2024-03-05 10:00:00' AND LState = 'Below' AND Duration = 10800")),
              3);

    // Relays: GIndex unique over the file, exactly one record without settings.
    QSet<qint64> gIndexes;
    qint64 relays = 0, orphans = 0;
    for (int n = 1; n <= 3; ++n) {
        const QString t = QStringLiteral("RelayLog_%1").arg(n);
        if (!db.tableExists(t))
            continue;
        SqlStatement rows = db.prepare(QStringLiteral("SELECT GIndex FROM %1").arg(q(t)));
        while (rows.next()) {
            ++relays;
            gIndexes.insert(rows.integer(0));
        }
        orphans +=
            count(db, QStringLiteral("SELECT COUNT(*) FROM %1 r LEFT JOIN RelayLogDataItem i ON "
                                     "i.[Index] = r.[Index] AND i.ModuleIndex = r.ModuleIndex AND "
                                     "i.RelayIndex = r.RelayIndex WHERE i.[Index] IS NULL")
                          .arg(q(t)));
    }
    EXPECT_GT(relays, 1);
    EXPECT_EQ(gIndexes.size(), relays);
    EXPECT_EQ(orphans, 1);

    // System events of one instant are numbered 1, 2, 3 by Sequence; test mode is flagged.
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT group_concat(Sequence) FROM (SELECT Sequence FROM "
                                       "SystemEventLog_2 WHERE [Date/Time] = '2024-03-05 13:00:00' "
                                       "ORDER BY Sequence)"))
                  .toString(),
              QStringLiteral("1,2,3"));
    EXPECT_EQ(
        count(db, QStringLiteral("SELECT COUNT(*) FROM SystemEventLog_3 WHERE InTestMode = -1")),
        2);
    EXPECT_EQ(
        count(db, QStringLiteral(
                      "SELECT COUNT(*) FROM SystemEventLog_3 WHERE InTestMode NOT IN (0, -1)")),
        0);
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT Description FROM SystemEventLog_2 WHERE "
                                       "[Date/Time] = '2024-03-05 10:00:00'"))
                  .toString(),
              QStringLiteral("Run Time was stopped (power loss, boot mode, etc.)"));

    // Snapshots in test mode carry their own type; the energy register never runs back.
    EXPECT_EQ(
        count(db, QStringLiteral("SELECT COUNT(*) FROM HistLogTimeIndex_3_14 WHERE TypeID = 12")),
        6);
    double previous = -1.0;
    for (int h = 0; h < 24; ++h) {
        SqlStatement v = db.prepare(
            QStringLiteral("SELECT v.Value FROM HistLog_1_%1 v JOIN HistLogTimeIndex_1_%1 i "
                           "ON i.[Date/TimeIndex] = v.[Date/TimeIndex] WHERE v.DataID = 26003 "
                           "ORDER BY i.[Date/Time]")
                .arg(h));
        while (v.next()) {
            EXPECT_GE(v.real(0), previous);
            previous = v.real(0);
        }
    }
    // Power factor band codes: lagging 0..1 by day, leading (1..2) while the capacitors are on.
    EXPECT_EQ(count(db, QStringLiteral("SELECT COUNT(*) FROM HistLog_1_2 WHERE DataID = 21404 AND "
                                       "(Value <= 1 OR Value >= 2)")),
              0);
    EXPECT_EQ(count(db, QStringLiteral("SELECT COUNT(*) FROM HistLog_1_8 WHERE DataID = 21404 AND "
                                       "(Value <= 0 OR Value > 1)")),
              0);

    // Flicker: four blocks a day, maxima not below minima.
    EXPECT_EQ(count(db, QStringLiteral("SELECT COUNT(*) FROM Flicker_MaxMin_1")), 4);
    EXPECT_EQ(count(db, QStringLiteral("SELECT COUNT(*) FROM Flicker_MaxMin_1 WHERE Max_ST_Va < "
                                       "Min_ST_Va OR Max_LT_Vc < Min_LT_Vc")),
              0);
}

TEST(SimulatorProgram, SameSeedSameFileOtherSeedOtherFile)
{
    QTemporaryDir dir;
    const QStringList args =
        smallMeter + QStringList{QStringLiteral("--seed"), QStringLiteral("7")};
    const QStringList a = dump(simulate(dir, QStringLiteral("a.DB"), args));
    const QStringList b = dump(simulate(dir, QStringLiteral("b.DB"), args));
    const QStringList c =
        dump(simulate(dir, QStringLiteral("c.DB"),
                      smallMeter + QStringList{QStringLiteral("--seed"), QStringLiteral("8")}));
    EXPECT_GT(a.size(), 1000);
    EXPECT_TRUE(a == b) << "same seed, same contents";
    EXPECT_FALSE(a == c) << "another seed, other contents";
}

TEST(SimulatorProgram, EachKindHoldsItsLogs)
{
    QTemporaryDir dir;
    struct Expect
    {
        const char* kind;
        int type;
        QList<qint32> billing;
        bool compliance;
        bool flicker;
        QList<int> logKinds; ///< master tables with rows
    };
    const QList<Expect> kinds{
        {"standard", 3, {26005}, true, true, {3, 4, 5, 6, 7, 8, 11}},
        {"talmo", 0, {20825}, false, true, {3, 4, 5, 6, 7, 8, 11}},
        {"recorder", 4, {202006, 202010}, false, true, {3, 4, 5, 6, 7, 8, 11}},
        {"basic", 6, {}, false, false, {3, 11}},
    };
    for (const Expect& e : kinds) {
        SCOPED_TRACE(e.kind);
        const QString path = simulate(
            dir, QString::fromLatin1(e.kind) + QStringLiteral(".DB"),
            smallMeter + QStringList{QStringLiteral("--kind"), QString::fromLatin1(e.kind),
                                     QStringLiteral("--schema-version"), QStringLiteral("9.1")});
        SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
        EXPECT_EQ(count(db, QStringLiteral("SELECT DeviceTypeID FROM DeviceInformation")), e.type);
        for (qint32 id : e.billing)
            EXPECT_EQ(
                count(db, QStringLiteral("SELECT COUNT(*) FROM DataPoints WHERE DataID = ?"), {id}),
                1)
                << id;
        EXPECT_EQ(
            count(db, QStringLiteral(
                          "SELECT COUNT(*) FROM DataPoints WHERE DataID BETWEEN 30001 AND 30082")),
            e.compliance ? 82 : 0);
        EXPECT_EQ(db.hasRows(
                      QStringLiteral("SELECT 1 FROM AllLogs WHERE LogOptionName LIKE '%Flicker%'")),
                  e.flicker);
        EXPECT_EQ(
            db.hasRows(QStringLiteral("SELECT DataID FROM DataPoints WHERE DataID / 27400 > 0")),
            e.flicker || e.compliance);
        for (int kind = 3; kind <= 11; ++kind) {
            if (kind == 9 || kind == 10)
                continue; // captures: see the capture writers' own tests
            const bool rows = db.hasRows(
                QStringLiteral("SELECT 1 FROM %1").arg(q(SchemaCatalog::masterTable(kind))));
            EXPECT_EQ(rows, e.logKinds.contains(kind)) << "log kind " << kind;
        }
        // 9.1: user labels, item 1 relabelled under the later profile.
        EXPECT_EQ(db.scalar(QStringLiteral(
                                "SELECT Label FROM User_Defined_Item_Labels WHERE Item_Index = 1 "
                                "ORDER BY ProfileIndex DESC LIMIT 1"))
                      .toString(),
                  QStringLiteral("Feeder Main (rewired)"));
    }
}

TEST(SimulatorProgram, SplitMeterHasOneDatabasePerLog)
{
    QTemporaryDir dir;
    const QString folder =
        simulate(dir, QStringLiteral("Feeder15"),
                 smallMeter + QStringList{QStringLiteral("--kind"), QStringLiteral("split")});
    const QFileInfo dml(QDir(folder).filePath(QStringLiteral("Feeder15.dml")));
    ASSERT_TRUE(dml.exists());
    EXPECT_EQ(dml.size(), 0);
    const QList<std::pair<const char*, int>> logs{
        {"INTERVAL_1", 3},     {"INTERVAL_2", 4}, {"LIMIT_LOG", 5},    {"DIGITAL_INPUT", 6},
        {"DIGITAL_OUTPUT", 7}, {"FLICKER", 8},    {"SYSTEM_EVENT", 11}};
    for (const auto& [name, kind] : logs) {
        const QString path =
            QDir(folder).filePath(QStringLiteral("logs/%1/%1.db").arg(QString::fromLatin1(name)));
        ASSERT_TRUE(QFileInfo::exists(path)) << path.toStdString();
        SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
        EXPECT_EQ(count(db, QStringLiteral("SELECT DeviceTypeID FROM DeviceInformation")), 5);
        EXPECT_EQ(count(db, QStringLiteral("SELECT COUNT(*) FROM DataPoints WHERE DataID = 26005")),
                  1);
        for (int other = 3; other <= 11; ++other) {
            const bool rows = db.hasRows(
                QStringLiteral("SELECT 1 FROM %1").arg(q(SchemaCatalog::masterTable(other))));
            EXPECT_EQ(rows, other == kind) << name << " log kind " << other;
        }
        EXPECT_EQ(count(db, QStringLiteral("SELECT COUNT(*) FROM AllLogs")), 1);
    }
    for (const char* name : {"WAVEFORM", "TRANSIENT", "PQ_LOG", "EN50160"})
        EXPECT_TRUE(QFileInfo::exists(
            QDir(folder).filePath(QStringLiteral("logs/%1/%1.db").arg(QString::fromLatin1(name)))))
            << name;
}

TEST(SimulatorProgram, BadArgumentsAreRefusedWithAMessage)
{
    QTemporaryDir dir;
    const QString out = dir.filePath(QStringLiteral("x.DB"));
    const QList<QStringList> bad{
        {},
        {QStringLiteral("--out")},
        {QStringLiteral("--out"), out, QStringLiteral("--kind"), QStringLiteral("giant")},
        {QStringLiteral("--out"), out, QStringLiteral("--schema-version"), QStringLiteral("8.7")},
        {QStringLiteral("--out"), out, QStringLiteral("--schema-version"), QStringLiteral("nine")},
        {QStringLiteral("--out"), out, QStringLiteral("--days"), QStringLiteral("0")},
        {QStringLiteral("--out"), out, QStringLiteral("--interval-minutes"), QStringLiteral("7")},
        {QStringLiteral("--out"), out, QStringLiteral("--points"), QStringLiteral("51")},
        {QStringLiteral("--out"), out, QStringLiteral("--start"), QStringLiteral("2024-02-30")},
        {QStringLiteral("--out"), out, QStringLiteral("--seed"), QStringLiteral("-3")},
        {QStringLiteral("--out"), out, QStringLiteral("--colour"), QStringLiteral("red")},
        {QStringLiteral("--out"), out, QStringLiteral("--pq-test-parameters"),
         QStringLiteral("2,0")},
        {QStringLiteral("--out"), out, QStringLiteral("--pq-test-parameters"), QStringLiteral("1")},
        {QStringLiteral("--out"), out, QStringLiteral("--pq-test-parameters"),
         QStringLiteral("1,256")},
        {QStringLiteral("demo"), QStringLiteral("--out"), out, QStringLiteral("--days"),
         QStringLiteral("2")},
    };
    for (const QStringList& args : bad) {
        const auto result = runProgram(QStringLiteral("lorvane-sim"), args);
        EXPECT_NE(result.exitCode, 0) << args.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(result.err.startsWith(QStringLiteral("lorvane-sim: ")))
            << result.err.toStdString();
        EXPECT_FALSE(QFileInfo::exists(out));
    }
    EXPECT_TRUE(runProgram(QStringLiteral("lorvane-sim"),
                           {QStringLiteral("--schema-version"), QStringLiteral("7.4"),
                            QStringLiteral("--out"), out})
                    .err.contains(QStringLiteral("7.5, 7.55, 7.6, 7.7, 7.8, 7.9, 8.0 to 8.6 or "
                                                 "8.8 to 9.1")));

    // An existing file is kept unless --overwrite is given.
    QFile keep(out);
    ASSERT_TRUE(keep.open(QIODevice::WriteOnly));
    keep.write("keep me");
    keep.close();
    const auto refused = runProgram(QStringLiteral("lorvane-sim"), {QStringLiteral("--out"), out});
    EXPECT_NE(refused.exitCode, 0);
    EXPECT_TRUE(refused.err.contains(QStringLiteral("already exists")));
    ASSERT_TRUE(keep.open(QIODevice::ReadOnly));
    EXPECT_EQ(keep.readAll(), QByteArray("keep me"));

    const auto help = runProgram(QStringLiteral("lorvane-sim"), {QStringLiteral("--help")});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.out.contains(QStringLiteral("--interval-minutes")));
}
