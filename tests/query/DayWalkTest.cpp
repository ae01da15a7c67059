// SPDX-License-Identifier: GPL-3.0-or-later
#include "query/engine/DayWalk.h"

#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "query/engine/QueryCatalog.h"
#include "store/MeterSchema.h"
#include "store/TempQueryDatabase.h"
#include "support/MeterFileBuilder.h"
#include "support/TestEnvironment.h"
#include "support/TestMeters.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::MeterFileBuilder;

namespace {

class RecordingProgress : public LoadProgress
{
public:
    void status(const QString& text) override { lines << text; }
    QStringList lines;
    QList<double> fractions;
    int asked = 0;
    int cancelAfter = 1000;

protected:
    void showFraction(std::optional<double> fraction) override
    {
        fractions << fraction.value_or(-1);
    }
    void serve() override
    {
        if (++asked > cancelAfter)
            requestCancel();
    }
};

QDateTime at(const char* text)
{
    return QDateTime::fromString(QString::fromLatin1(text), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

/// A meter with limit events on the given days: each day holds events at 06:00, 12:00 and
/// 18:00; a day listed in `emptyDays` has a day row with no table.
QString limitMeter(const QTemporaryDir& dir, const QString& name, const QList<int>& days,
                   const QList<int>& emptyDays = {})
{
    const QString path = dir.filePath(name);
    MeterFileBuilder file(path);
    file.device(3, QStringLiteral("Halyx 3"), name);
    const MeterSchema schema;
    qint64 n = 0;
    for (int day : days) {
        ++n;
        const QString date = QStringLiteral("2024-03-%1").arg(day, 2, 10, QLatin1Char('0'));
        if (emptyDays.contains(day)) {
            file.sql(QStringLiteral("INSERT INTO AllLimitsLogs ([Date/Time], LogTablesIndex, "
                                    "HTable, Recs, Records) VALUES (?, ?, 0, 0, 0)"),
                     {date + QStringLiteral(" 00:00:00"), n});
            continue;
        }
        const TableLayout table = schema.dayTable(LogKind::Limits, n);
        file.db().executeScript(table.createSql());
        for (const char* time : {"06:00:00", "12:00:00", "18:00:00"}) {
            file.sql(QStringLiteral("INSERT INTO %1 ([StartDate/Time], [EndDate/Time], LState, "
                                    "LinkIndex) VALUES (?, ?, 'Below', 1)")
                         .arg(SqlIdentifier::quote(table.name())),
                     {date + QLatin1Char(' ') + QLatin1String(time),
                      date + QLatin1Char(' ') + QLatin1String(time)});
        }
        file.dayRow(QStringLiteral("AllLimitsLogs"), date + QStringLiteral(" 00:00:00"), n, 3,
                    date + QStringLiteral(" 06:00:00"), date + QStringLiteral(" 18:00:00"));
    }
    file.close();
    return path;
}

LogFileEntry entry(const QString& path, const QString& name)
{
    LogFileEntry e;
    e.dbPath = path;
    e.hardwareName = name;
    e.used = true;
    e.deviceTypeId = 3;
    return e;
}

QByteArray digest(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

struct Fixture
{
    QTemporaryDir dir;
    std::unique_ptr<TempQueryDatabase> scratch;
    Fixture() { scratch = lorvane::test::scratchDatabase(dir, 4242); }
};

/// A limit loader in its simplest form: the day's events inside the visit's range.
DayWalk::Visitor limitLoader(SqliteDatabase& db, const QString& target, QList<QDate>* visited)
{
    return [&db, target, visited](const DayVisit& v) {
        if (visited)
            visited->append(v.row.day);
        const QString source =
            SqlIdentifier::quote(v.schema) + QLatin1Char('.') +
            SqlIdentifier::quote(QStringLiteral("LimitsLog_%1").arg(v.row.logTablesIndex));
        const qint64 before =
            db.scalar(QStringLiteral("SELECT count(*) FROM ") + SqlIdentifier::quote(target))
                .toLongLong();
        db.execute(QStringLiteral("INSERT INTO %1 ([StartDate/Time], [EndDate/Time], LState) "
                                  "SELECT [StartDate/Time], [EndDate/Time], LState FROM %2 "
                                  "WHERE [StartDate/Time] BETWEEN ? AND ?")
                       .arg(SqlIdentifier::quote(target), source),
                   {QueryCatalog::stamp(v.from), QueryCatalog::stamp(v.to)});
        DayWalk::stampDevice(db, target, v.file->deviceIndex + 1);
        const qint64 after =
            db.scalar(QStringLiteral("SELECT count(*) FROM ") + SqlIdentifier::quote(target))
                .toLongLong();
        return VisitResult{after - before, false, {}};
    };
}

} // namespace

TEST(QueryCatalog, CreateQueryMakesTheTablesOfItsType)
{
    Fixture f;
    QueryCatalog catalog(*f.scratch);
    const QList<LogFileEntry> files{entry(QStringLiteral("/data/a.DB"), QStringLiteral("A")),
                                    entry(QStringLiteral("/data/b.DB"), QStringLiteral("B"))};
    const QueryNumbers limits = catalog.createQuery(
        at("2024-03-01 00:00:00"), at("2024-03-07 23:59:59"), LogKind::Limits, files);
    SqliteDatabase& db = f.scratch->database();
    for (const char* table : {"LogDevices_%1", "HistSubQuery_%1", "TagNames_%1_%2", "HistLog_%1_%2",
                              "HLogTimeIndex_%1", "ScaledFormats_%1_%2", "LimitsLog_%1_%2"}) {
        const QString name = QString::fromLatin1(table).arg(limits.query).arg(limits.slice);
        EXPECT_TRUE(
            db.tableExists(name.contains(QStringLiteral("%2")) ? name.arg(limits.slice) : name))
            << table;
    }
    EXPECT_FALSE(db.tableExists(limits.sliceTable(QStringLiteral("PQLog_"))));
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT group_concat(DeviceIndex || ':' || HardwareName) "
                                       "FROM ") +
                        limits.table(QStringLiteral("LogDevices_")))
                  .toString(),
              QStringLiteral("1:A,2:B"));

    // A second query gets the next number; a further slice of it the next slice number.
    const QueryNumbers pq = catalog.createQuery(
        at("2024-03-01 00:00:00"), at("2024-03-02 00:00:00"), LogKind::PowerQuality, files);
    EXPECT_EQ(pq.query, limits.query + 1);
    EXPECT_TRUE(db.tableExists(pq.sliceTable(QStringLiteral("PQLog_"))));
    EXPECT_TRUE(db.tableExists(pq.sliceTable(QStringLiteral("FullScales_"))));
    const QueryNumbers next = catalog.addSlice(pq.query, at("2024-03-02 00:00:00"),
                                               at("2024-03-03 00:00:00"), LogKind::PowerQuality);
    EXPECT_EQ(next.slice, pq.slice + 1);
    EXPECT_TRUE(db.tableExists(next.sliceTable(QStringLiteral("WaveformLog_"))));
    // Rows inserted from a meter table arrive untagged, to be stamped by their file.
    db.execute(QStringLiteral("INSERT INTO %1 (LState) VALUES ('Above')")
                   .arg(limits.sliceTable(QStringLiteral("LimitsLog_"))));
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT DeviceIndex FROM ") +
                        limits.sliceTable(QStringLiteral("LimitsLog_")))
                  .toInt(),
              -1);
}

TEST(DayWalk, ReadsTheDaysOfTheRangeFromEveryFile)
{
    Fixture f;
    const QString a = limitMeter(f.dir, QStringLiteral("A.DB"), {1, 2, 3});
    const QString b = limitMeter(f.dir, QStringLiteral("B.DB"), {2, 3, 4}, {3});
    const QByteArray before = digest(a);
    QList<LogFileEntry> files{entry(a, QStringLiteral("Meter A")),
                              entry(b, QStringLiteral("Meter B"))};
    files[1].deviceIndex = 1;
    QueryCatalog catalog(*f.scratch);
    const QueryNumbers q = catalog.createQuery(at("2024-03-01 12:00:00"), at("2024-03-04 23:59:59"),
                                               LogKind::Limits, files);
    const QString target = q.sliceTable(QStringLiteral("LimitsLog_"));
    RecordingProgress progress;
    QList<QDate> visited;
    DayWalk walk(*f.scratch, progress);
    const DayWalk::Result result = walk.run(
        files, QStringLiteral("AllLimitsLogs"), QStringLiteral("limits"), at("2024-03-01 12:00:00"),
        at("2024-03-04 23:59:59"), false, limitLoader(f.scratch->database(), target, &visited));

    // Day 1 is cut at 12:00 (two events of three); days 2 and 3 of A, 2 and 4 of B whole;
    // B's day 3 has a day row without a table and is not visited.
    EXPECT_EQ(result.rows, 2 + 3 + 3 + 3 + 3);
    EXPECT_FALSE(result.noData);
    SqliteDatabase& db = f.scratch->database();
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT count(*) FROM %1 WHERE DeviceIndex = 1").arg(target))
                  .toInt(),
              8);
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT count(*) FROM %1 WHERE DeviceIndex = 2").arg(target))
                  .toInt(),
              6)
        << "the second file's update must not restamp the first file's rows";
    EXPECT_EQ(visited.size(), 5);
    EXPECT_TRUE(progress.lines.contains(QStringLiteral("Loading limits queries")));
    EXPECT_TRUE(progress.lines.contains(QStringLiteral("Open device file: Meter B")));
    // The bar stood still: the four days of the range are the walk's known total.
    EXPECT_EQ(progress.fractions, QList<double>({0, 0.25, 0.5, 0.75, 1}));
    EXPECT_EQ(digest(a), before) << "reading a meter file must not change it";
    EXPECT_TRUE(
        db.hasRows(QStringLiteral("SELECT 1 FROM pragma_database_list WHERE name = 'main'")));
    EXPECT_FALSE(db.hasRows(QStringLiteral("SELECT 1 FROM pragma_database_list WHERE name LIKE "
                                           "'meter%'")))
        << "meter files are detached after the load";

    // Descending: the same days, backwards.
    QList<QDate> backwards;
    const QueryNumbers d = catalog.createQuery(at("2024-03-01 00:00:00"), at("2024-03-04 23:59:59"),
                                               LogKind::Limits, files);
    walk.run(files, QStringLiteral("AllLimitsLogs"), QStringLiteral("limits"),
             at("2024-03-04 23:59:59"), at("2024-03-01 00:00:00"), true,
             limitLoader(db, d.sliceTable(QStringLiteral("LimitsLog_")), &backwards));
    ASSERT_FALSE(backwards.isEmpty());
    EXPECT_EQ(backwards.first(), QDate(2024, 3, 4));
    EXPECT_EQ(backwards.last(), QDate(2024, 3, 1));
}

TEST(DayWalk, EmptyRangesMissingFilesAndCancel)
{
    Fixture f;
    const QString a = limitMeter(f.dir, QStringLiteral("A.DB"), {1, 2, 3});
    QList<LogFileEntry> files{
        entry(a, QStringLiteral("Meter A")),
        entry(f.dir.filePath(QStringLiteral("Gone.DB")), QStringLiteral("Gone"))};
    files[1].deviceIndex = 1;
    QueryCatalog catalog(*f.scratch);
    const QueryNumbers q = catalog.createQuery(at("2024-04-01 00:00:00"), at("2024-04-02 00:00:00"),
                                               LogKind::Limits, files);
    const QString target = q.sliceTable(QStringLiteral("LimitsLog_"));
    RecordingProgress progress;
    DayWalk walk(*f.scratch, progress);

    DayWalk::Result result = walk.run(
        files, QStringLiteral("AllLimitsLogs"), QStringLiteral("limits"), at("2024-04-01 00:00:00"),
        at("2024-04-02 00:00:00"), false, limitLoader(f.scratch->database(), target, nullptr));
    EXPECT_TRUE(result.noData);
    EXPECT_EQ(result.rows, 0);
    EXPECT_EQ(progress.lines.last(),
              QStringLiteral("Search did not find any data from master databases."));
    EXPECT_FALSE(files.at(1).readable) << "a file removed after selection is skipped";
    EXPECT_TRUE(files.at(0).readable);

    // Cancelled after the first day: what was read stays.
    progress.cancelAfter = 0;
    result = walk.run(files, QStringLiteral("AllLimitsLogs"), QStringLiteral("limits"),
                      at("2024-03-01 00:00:00"), at("2024-03-03 23:59:59"), false,
                      limitLoader(f.scratch->database(), target, nullptr));
    EXPECT_TRUE(result.cancelled);
    EXPECT_EQ(result.rows, 3);
}
