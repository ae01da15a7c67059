// SPDX-License-Identifier: GPL-3.0-or-later
// The EN 50160 test list on meter files built here: the range, the columns and cells, the
// nominal voltage rule with and without the meter's column, the status texts and shades,
// and every refusal with what it leaves in the scratch tables.
#include "query/views/en50160/PqTestList.h"

#include "platform/Fault.h"
#include "query/views/en50160/PqTestStatus.h"
#include "store/MeterSchema.h"
#include "store/TableLayout.h"
#include "store/WallClock.h"
#include "support/MeterFileBuilder.h"
#include "support/TestMeters.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::MeterFileBuilder;

namespace {

struct TestRow
{
    QString start;
    QString end;
    double frequency;
    QVariant nominalVoltage;
    int status; ///< written to every S_ column
};

LogFileEntry meterFile(const QString& path, const QString& name, const QList<TestRow>& rows,
                       bool withVoltageColumn = true, double version = 8.6)
{
    MeterFileBuilder file(path);
    file.device(3, QStringLiteral("Meter"), name);
    if (!withVoltageColumn) {
        file.sql(QStringLiteral("DROP TABLE AllPQTestLogs"));
        file.sql(MeterSchema(8.6)
                     .table(QStringLiteral("AllPQTestLogs"))
                     .without({QStringLiteral("NominalVoltage")})
                     .createSql());
    }
    int id = 0;
    for (const TestRow& row : rows) {
        QString columns = QStringLiteral("ID_PQTest, StartTime, EndTime, Freq, S_Freq, S_LSV, "
                                         "S_FVF, S_Flicker, S_SVU, S_Harmonic, S_THD");
        QVariantList values{++id, row.start, row.end, row.frequency};
        const QVariant status = row.status == 99 ? QVariant() : QVariant(row.status);
        for (int i = 0; i < 7; ++i)
            values << status;
        if (withVoltageColumn) {
            columns += QStringLiteral(", NominalVoltage");
            values << row.nominalVoltage;
        }
        file.sql(QStringLiteral("INSERT INTO AllPQTestLogs (%1) VALUES (%2)")
                     .arg(columns, QStringLiteral("?,").repeated(values.size()).chopped(1)),
                 values);
    }
    // An older file keeps its test table: only the version decides the refusal.
    file.sql(QStringLiteral("UPDATE ID_Table SET Version = ?"), {version});
    file.close();
    LogFileEntry entry;
    entry.dbPath = path;
    entry.hardwareName = name;
    entry.used = true;
    return entry;
}

class PqTestListTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        m_scratch = lorvane::test::scratchDatabase(m_folder, QCoreApplication::applicationPid());
    }
    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    GridTable list(const QList<LogFileEntry>& meters, const char* from = "2024-01-01 00:00:00",
                   const char* to = "2024-12-31 23:59:59")
    {
        return PqTestList::list(*m_scratch, meters, StampedTimeOf(from), StampedTimeOf(to));
    }
    static QDateTime StampedTimeOf(const char* text)
    {
        return WallClock::at(QDate::fromString(QString::fromLatin1(text).left(10), Qt::ISODate),
                             QTime::fromString(QString::fromLatin1(text).mid(11), Qt::ISODate));
    }
    qint64 count(const char* table)
    {
        return m_scratch->database()
            .scalar(QStringLiteral("SELECT count(*) FROM ") + QString::fromLatin1(table))
            .toLongLong();
    }

    QTemporaryDir m_folder;
    std::unique_ptr<TempQueryDatabase> m_scratch;
};

} // namespace

TEST_F(PqTestListTest, NominalVoltageCellsByValueAndFrequency)
{
    struct Case
    {
        double frequency;
        QVariant stored;
        const char* cell;
    };
    const Case withColumn[] = {
        {50, 39, "230 V"},  {50, 40, "40 V"},       {60, 600, "600 V"},
        {60, 601, "120 V"}, {55, 601, ""},          {55, 40, "40 V"},
        {60, 39, "120 V"},  {50, 230.5, "230.5 V"}, {60, QVariant(), "120 V"},
    };
    QList<TestRow> rows;
    int day = 1;
    for (const Case& c : withColumn) {
        const QString start =
            QStringLiteral("2024-03-%1 00:00:00").arg(day, 2, 10, QLatin1Char('0'));
        const QString end =
            QStringLiteral("2024-03-%1 00:00:00").arg(day + 1, 2, 10, QLatin1Char('0'));
        rows.append({start, end, c.frequency, c.stored, 1});
        ++day;
    }
    const GridTable grid = list({meterFile(path("a.DB"), QStringLiteral("Feeder A"), rows)});
    ASSERT_EQ(grid.rows.size(), qsizetype(std::size(withColumn)));
    for (qsizetype i = 0; i < grid.rows.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(grid.rows.at(i).at(PqTestList::NominalVoltage),
                  QString::fromLatin1(withColumn[i].cell));
    }

    // A meter file from before the column: the cell follows the frequency alone.
    const GridTable older =
        list({meterFile(path("b.DB"), QStringLiteral("Feeder B"),
                        {{"2024-03-01 00:00:00", "2024-03-02 00:00:00", 50, QVariant(), 1},
                         {"2024-03-02 00:00:00", "2024-03-03 00:00:00", 60, QVariant(), 1},
                         {"2024-03-03 00:00:00", "2024-03-04 00:00:00", 55, QVariant(), 1}},
                        false)});
    ASSERT_EQ(older.rows.size(), 3);
    EXPECT_EQ(older.rows.at(0).at(PqTestList::NominalVoltage), QStringLiteral("230 V"));
    EXPECT_EQ(older.rows.at(1).at(PqTestList::NominalVoltage), QStringLiteral("120 V"));
    EXPECT_EQ(older.rows.at(2).at(PqTestList::NominalVoltage), QString());
    EXPECT_EQ(older.rowKeys.at(0).value(QStringLiteral("NominalVoltage")).toDouble(), 230.0);
}

TEST_F(PqTestListTest, RowsOfTwoMetersInsideTheRangeWithTheirStatuses)
{
    const LogFileEntry a = meterFile(path("a.DB"), QStringLiteral("Feeder A"),
                                     {{"2024-03-04 00:00:00", "2024-03-11 00:00:00", 50, 230, 1},
                                      {"2024-03-11 00:00:00", "2024-03-18 00:00:00", 50, 230, 2},
                                      // ends past the range: not listed
                                      {"2024-03-18 00:00:00", "2024-03-25 00:00:01", 50, 230, 0}});
    const LogFileEntry b = meterFile(path("b.DB"), QStringLiteral("Feeder B"),
                                     {{"2024-03-05 00:00:00", "2024-03-06 00:00:00", 60, 120, -1},
                                      {"2024-03-06 00:00:00", "2024-03-07 00:00:00", 60, 120, 3},
                                      {"2024-03-07 00:00:00", "2024-03-08 00:00:00", 60, 120, 99}});
    const GridTable grid = list({a, b}, "2024-03-04 00:00:00", "2024-03-25 00:00:00");
    EXPECT_EQ(grid.caption, QStringLiteral("EN50160 / IEC 61000-4-30 Information"));
    EXPECT_EQ(grid.columns.size(), PqTestList::ColumnCount);
    EXPECT_EQ(grid.columns.at(PqTestList::FirstStatus), QStringLiteral("   Freq Fluc   "));
    ASSERT_EQ(grid.rows.size(), 5);
    // By start time across both meters.
    const char* names[] = {"Feeder A", "Feeder B", "Feeder B", "Feeder B", "Feeder A"};
    const char* statuses[] = {"Passed", "N/A", "Unknown", "Unknown", "Concern"};
    for (int r = 0; r < 5; ++r) {
        SCOPED_TRACE(r);
        const QStringList& row = grid.rows.at(r);
        EXPECT_EQ(row.at(PqTestList::DeviceName), QString::fromLatin1(names[r]));
        for (int c = PqTestList::FirstStatus; c < PqTestList::SourceDb; ++c)
            EXPECT_EQ(row.at(c), QString::fromLatin1(statuses[r]));
    }
    EXPECT_EQ(grid.rows.at(0).at(PqTestList::StartTime), QStringLiteral("2024-03-04 00:00:00"));
    EXPECT_EQ(grid.rows.at(1).at(PqTestList::NominalFrequency), QStringLiteral("60"));
    EXPECT_EQ(grid.rows.at(4).at(PqTestList::SourceDb), a.dbPath);
    EXPECT_EQ(grid.rows.at(4).at(PqTestList::SourceId), QStringLiteral("2"));
    EXPECT_EQ(count("PQTestLogsDetail"), 5);
    EXPECT_EQ(m_scratch->database()
                  .scalar(QStringLiteral("SELECT SourcePathB FROM PQTestLogsMain"))
                  .toString(),
              b.dbPath);

    // A second listing replaces the first.
    EXPECT_EQ(list({b}).rows.size(), 3);
    EXPECT_EQ(count("PQTestLogsDetail"), 3);
    EXPECT_EQ(count("PQTestLogsMain"), 1);
}

TEST(PqTestStatus, TextsAndShadesOfEachCode)
{
    using C = PqTestStatus::Code;
    using S = PqTestStatus::Shade;
    struct Case
    {
        QVariant stored;
        C code;
        const char* text;
        S shade;
        bool white;
    };
    const Case cases[] = {
        {-1, C::NotApplicable, "N/A", S::None, false},
        {0, C::Failed, "Failed", S::Red, false},
        {1, C::Passed, "Passed", S::Green, false},
        {2, C::Concern, "Concern", S::Grey, false},
        {3, C::Unknown, "Unknown", S::PlatformGrayText, true},
        {-2, C::Unknown, "Unknown", S::PlatformGrayText, true},
        {QVariant(), C::Unknown, "Unknown", S::PlatformGrayText, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const C code = PqTestStatus::of(c.stored);
        EXPECT_EQ(code, c.code);
        EXPECT_EQ(PqTestStatus::text(code), QString::fromLatin1(c.text));
        EXPECT_EQ(PqTestStatus::shade(code), c.shade);
        EXPECT_EQ(PqTestStatus::whiteText(code), c.white);
    }
}

TEST_F(PqTestListTest, RefusalsAndWhatTheyLeave)
{
    const auto refusal = [&](const QList<LogFileEntry>& meters) -> QString {
        try {
            list(meters);
        } catch (const Fault& fault) {
            return fault.message();
        }
        return QStringLiteral("no refusal");
    };
    EXPECT_EQ(refusal({}), QStringLiteral("Please select at least one database file"));

    const LogFileEntry good =
        meterFile(path("good.DB"), QStringLiteral("Good"),
                  {{"2024-03-04 00:00:00", "2024-03-05 00:00:00", 50, 230, 1}});
    const LogFileEntry old =
        meterFile(path("old.DB"), QStringLiteral("Old"),
                  {{"2024-03-04 00:00:00", "2024-03-05 00:00:00", 50, 230, 1}}, true, 8.5);
    const QString meterMessage = refusal({good, old});
    EXPECT_TRUE(meterMessage.startsWith(QStringLiteral("We are sorry but the current database ") +
                                        old.dbPath + QStringLiteral(" with a version of 8.5 is")))
        << qPrintable(meterMessage);
    EXPECT_TRUE(meterMessage.endsWith(QStringLiteral("Thank you for your time.")));
    EXPECT_EQ(count("PQTestLogsMain"), 0);
    // The rows of the meter read before the refusal stay.
    EXPECT_EQ(count("PQTestLogsDetail"), 1);

    m_scratch->database().execute(QStringLiteral("UPDATE ID_Table SET Version = 8.5"));
    EXPECT_TRUE(refusal({good}).startsWith(QStringLiteral(
        "We are sorry but the current database LorvaneTempQuery.DB with a version of 8.5")));
    m_scratch->database().execute(QStringLiteral("DROP TABLE ID_Table"));
    EXPECT_EQ(
        refusal({good}),
        QStringLiteral("There was an Error, Please contact QLM for assistance, Err Code : 5435"));
}
