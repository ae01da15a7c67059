// SPDX-License-Identifier: GPL-3.0-or-later
// The upgrade ladder on files written with plain SQL at each older layout: every version from
// 7.5 to 8.5 reaches the 8.6 layout with its rows intact, the version faults and refusals
// carry the system's texts and leave the file alone, a failing or cancelled step leaves the
// file at the last whole version, and the scratch database is compared as the selection does.
#include "store/SchemaUpgrade.h"

#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "store/MeterMessages.h"
#include "store/MeterSchema.h"
#include "store/SchemaCatalog.h"
#include "store/UpgradeLadder.h"

#include <QCryptographicHash>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

const QList<double> olderVersions{7.5, 7.6, 7.7, 7.9, 8.0, 8.1, 8.2, 8.3, 8.4, 8.5};

QString q(const QString& name)
{
    return SqlIdentifier::quote(name);
}

/// A meter file of `version` with the file-wide tables of its layout, two snapshot days
/// (hours 0 and 5 of day 1, hour 23 of day 2) and rows in the tables the steps rework.
QString writeMeter(const QTemporaryDir& dir, double version, const QString& name = {})
{
    const QString path =
        dir.filePath(name.isEmpty() ? QStringLiteral("v%1.DB").arg(version) : name);
    SqliteDatabase db(path, SqliteDatabase::Mode::Create);
    const MeterSchema schema(version);
    for (const TableLayout& table : schema.fileTables())
        db.executeScript(table.createSql());
    db.execute(QStringLiteral("INSERT INTO [ID_Table] ([Version], [Note]) VALUES (?, ?)"),
               {version, QStringLiteral("written by the test")});
    db.execute(QStringLiteral("INSERT INTO [LimitsLogDataItem] ([LinkIndex], [DataID], [LSAB]) "
                              "VALUES (1, 20617, 'Above'), (2, 20621, 'Below')"));
    db.execute(QStringLiteral("INSERT INTO [PQWaveLogDataItem] ([Index], [HookUp]) VALUES (1, 3)"));
    db.execute(QStringLiteral("INSERT INTO [AllInputLogs] ([Date/Time], [LogTablesIndex], "
                              "[Recs]) VALUES ('2024-03-04 00:00:00', 1, 17)"));
    db.execute(QStringLiteral("INSERT INTO [AllLogs] ([EntryDate/Time], [LogOptionName]) "
                              "VALUES ('2024-03-06 00:01:00', 'Historical Log 1')"));
    const QList<std::pair<qint64, QList<int>>> days{{1, {0, 5}}, {2, {23}}};
    for (const auto& [n, hours] : days) {
        QStringList columns{q(QStringLiteral("Date/Time")), q(QStringLiteral("LogTablesIndex"))};
        QStringList values{QStringLiteral("'2024-03-0%1 00:00:00'").arg(3 + n), QString::number(n)};
        for (int h : hours) {
            columns << q(QStringLiteral("Hour_%1").arg(h));
            values << QStringLiteral("-1");
            const TableLayout index = schema.hourTimeIndexTable(LogKind::Snapshots, n, h);
            db.executeScript(index.createSql());
            db.execute(QStringLiteral("INSERT INTO %1 ([Date/TimeIndex], [TypeID]) VALUES (1, 2)")
                           .arg(q(index.name())));
        }
        db.execute(QStringLiteral("INSERT INTO [AllHistoricalLogs] (%1) VALUES (%2)")
                       .arg(columns.join(QLatin1Char(',')), values.join(QLatin1Char(','))));
    }
    return path;
}

/// Column names of a table, in name order so that columns moved by a step compare equal.
QStringList sortedColumns(SqliteDatabase& db, const QString& table)
{
    QStringList columns = db.columns(table);
    columns.sort(Qt::CaseInsensitive);
    return columns;
}

QStringList sortedColumns(const TableLayout& layout)
{
    QStringList columns = layout.columnNames();
    columns.sort(Qt::CaseInsensitive);
    return columns;
}

QByteArray digest(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

Fault upgradeFault(const QString& path)
{
    try {
        SchemaUpgrade::upgrade(path);
    } catch (const Fault& fault) {
        return fault;
    }
    ADD_FAILURE() << "no fault for " << path.toStdString();
    return Fault(Fault::Kind::Other, {}, {}, {});
}

/// The columns the 8.6 step gives `AllPQTestLogs`, as the ladder's description lists them.
QStringList pqTestColumnsOfTheStep()
{
    QStringList columns{"ID_PQTest", "StartTime", "EndTime",   "Freq",       "S_Freq",     "S_LSV",
                        "S_FVF",     "S_Flicker", "S_SVU",     "S_Harmonic", "S_THD",      "P_Freq",
                        "P_LSV",     "P_FVF",     "P_Flicker", "P_SVU",      "P_Harmonic", "P_THD"};
    for (int bin = 1; bin <= 170; ++bin)
        columns << QStringLiteral("bin_%1").arg(bin);
    return columns;
}

/// Records the share of the ladder shown and the last text; cancels once the share reaches
/// `cancelFrom`.
class LadderProgress : public LoadProgress
{
public:
    void status(const QString& text) override { label = text; }
    QList<double> fractions;
    QString label;
    double cancelFrom = 2;

protected:
    void showFraction(std::optional<double> fraction) override
    {
        fractions << fraction.value_or(-1);
    }
    void serve() override
    {
        if (!fractions.isEmpty() && fractions.last() >= cancelFrom - 1e-9)
            requestCancel();
    }
};

} // namespace

TEST(SchemaUpgrade, EveryOlderVersionReachesTheCurrentLayoutWithItsRows)
{
    QTemporaryDir dir;
    const MeterSchema current;
    for (double version : olderVersions) {
        SCOPED_TRACE(version);
        const QString path = writeMeter(dir, version);
        const UpgradeResult result = SchemaUpgrade::upgrade(path);
        EXPECT_DOUBLE_EQ(result.from, version);
        EXPECT_DOUBLE_EQ(result.to, 8.6);
        EXPECT_FALSE(result.cancelled);
        QStringList expectedSteps;
        for (const UpgradeStep& step : UpgradeLadder::stepsFrom(version))
            expectedSteps << step.name;
        EXPECT_EQ(result.steps, expectedSteps);
        EXPECT_EQ(result.steps.last(), QStringLiteral("UpdateDB2V8_6"));

        SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
        QStringList fileTables;
        for (const TableLayout& layout : current.fileTables()) {
            fileTables << layout.name();
            if (layout.name() != QLatin1String("AllPQTestLogs")) {
                EXPECT_EQ(sortedColumns(db, layout.name()), sortedColumns(layout))
                    << layout.name().toStdString();
            }
        }
        // Every upgraded file gained NominalVoltage and so claimed a nominal voltage: the
        // step builds the table from the statistics and bin_1 to bin_170 only.
        EXPECT_EQ(db.columns(QStringLiteral("AllPQTestLogs")), pqTestColumnsOfTheStep());
        for (const QString& table : db.tables()) {
            if (!table.startsWith(QLatin1String("HistLogTimeIndex_"))) {
                EXPECT_TRUE(fileTables.contains(table)) << table.toStdString();
            }
        }
        for (const QString& hour :
             {QStringLiteral("HistLogTimeIndex_1_0"), QStringLiteral("HistLogTimeIndex_1_5"),
              QStringLiteral("HistLogTimeIndex_2_23")}) {
            EXPECT_EQ(sortedColumns(db, hour),
                      sortedColumns(current.hourTimeIndexTable(LogKind::Snapshots, 0, 0)));
            EXPECT_EQ(db.scalar(QStringLiteral("SELECT [ProfileIndex] FROM %1").arg(q(hour))),
                      QVariant(qint64(0)));
        }
        // The widened LSAB keeps its texts; RecordFormat is -1 where the 7.6 step set it.
        EXPECT_EQ(db.scalar(QStringLiteral("SELECT group_concat([LSAB], '|') FROM (SELECT "
                                           "[LSAB] FROM [LimitsLogDataItem] ORDER BY "
                                           "[LinkIndex])"))
                      .toString(),
                  QStringLiteral("Above|Below"));
        EXPECT_EQ(db.scalar(QStringLiteral("SELECT [RecordFormat] FROM [PQWaveLogDataItem]"))
                      .toLongLong(),
                  version < 7.6 - 1e-9 ? -1 : 0 /* NULL reads as 0 */);
        // The 7.9 step replaces Recs and its counts restart at the default.
        EXPECT_EQ(db.scalar(QStringLiteral("SELECT [Recs] FROM [AllInputLogs]")).toLongLong(),
                  version < 7.9 - 1e-9 ? 0 : 17);
        if (version < 7.9 - 1e-9) {
            EXPECT_EQ(db.scalar(QStringLiteral("SELECT [HarvesterVersion] FROM [AllLogs]")),
                      QVariant(QStringLiteral("N/A")));
        }
        // The 8.5 step removed the unique FormatID index the 8.3 step made.
        EXPECT_FALSE(db.hasRows(QStringLiteral("SELECT 1 FROM sqlite_master WHERE "
                                               "name = 'ScaledFormats_FormatID'")));
        EXPECT_TRUE(db.hasRows(QStringLiteral("SELECT 1 FROM sqlite_master WHERE "
                                              "name = 'AllSystemEventLogs_PrimaryKey'")));
        const QString note = db.scalar(QStringLiteral("SELECT [Note] FROM [ID_Table]")).toString();
        EXPECT_TRUE(QRegularExpression(QStringLiteral("^Database Updated to V8\\.6 on "
                                                      "\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d$"))
                        .match(note)
                        .hasMatch())
            << note.toStdString();
    }
}

TEST(SchemaUpgrade, ClosingStatementsOfTheFixedAndStampedSteps)
{
    const QDateTime now(QDate(2024, 3, 4), QTime(7, 8, 9));
    const QList<UpgradeStep>& steps = UpgradeLadder::steps();
    ASSERT_EQ(steps.size(), 10);
    EXPECT_EQ(steps.at(0).closingStatement(now),
              QStringLiteral("Update [ID_Table] Set [Version]=7.6, [Note]='Update Database to "
                             "V7.6, 03/17/2000'"));
    EXPECT_EQ(steps.at(2).closingStatement(now),
              QStringLiteral("Update [ID_Table] Set [Version]=7.9, [Note]='Update Database to "
                             "V7.9, 10/06/2000'"));
    EXPECT_EQ(steps.at(3).closingStatement(now),
              QStringLiteral("Update [ID_Table] Set [Version]=8.0, [Note]='Update Database to "
                             "V8.0, 08/06/2001'"));
    EXPECT_EQ(steps.at(6).closingStatement(now),
              QStringLiteral("Update [ID_Table] Set [Version]=8.3, [Note]='Database Updated to "
                             "V8.3 on 2024-03-04 07:08:09'"));
    // No step leads to or from 7.8 or 7.55, and none starts at 8.6 or above.
    for (double none : {7.55, 7.8, 8.6, 8.8, 9.1, 7.4})
        EXPECT_TRUE(UpgradeLadder::stepsFrom(none).isEmpty()) << none;
    EXPECT_EQ(UpgradeLadder::stepsFrom(7.7).first().name, QStringLiteral("UpdateDB2V7_9"));
}

TEST(SchemaUpgrade, VersionFaultsAndRefusalsLeaveTheFileAlone)
{
    QTemporaryDir dir;
    struct Case
    {
        double version;
        Fault::Kind kind;
        QString step;
        QString message;
    };
    const QList<Case> cases{
        {7.8, Fault::Kind::Version, QStringLiteral("GetDB_Version"),
         QStringLiteral("Invalid database version 7.8 \nProgram will end.")},
        {7.4, Fault::Kind::Version, QStringLiteral("GetDB_Version"),
         QStringLiteral("Invalid database version 7.4 \nProgram will end.")},
        {0.0, Fault::Kind::Version, QStringLiteral("GetDB_Version"),
         QStringLiteral("Cannot read current database version.\nProgram will end. Please try "
                        "again.")},
        {7.55, Fault::Kind::Version, QStringLiteral("BlockLoadDB"),
         QStringLiteral("Current database file:\nv7.55.DB\nVersion 7.55\ncannot be upgraded.  "
                        "Please start with a new file.")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.version);
        const QString path = writeMeter(dir, c.version);
        const QByteArray before = digest(path);
        const Fault fault = upgradeFault(path);
        EXPECT_EQ(fault.kind(), c.kind);
        EXPECT_EQ(fault.step(), c.step);
        EXPECT_EQ(fault.message(), c.message);
        EXPECT_EQ(fault.report(), c.step + QStringLiteral(" - ") + path);
        EXPECT_EQ(digest(path), before);
    }

    // ID_Table without a row reads -1 and cannot be read as a version.
    const QString empty = writeMeter(dir, 8.5, QStringLiteral("empty.DB"));
    SqliteDatabase(empty, SqliteDatabase::Mode::ReadWrite)
        .execute(QStringLiteral("DELETE FROM [ID_Table]"));
    EXPECT_DOUBLE_EQ(SchemaUpgrade::GetDB_Version(empty), -1.0);
    EXPECT_EQ(upgradeFault(empty).message(), MeterMessages::cannotReadVersion());

    // The read-only mark refuses the file before anything is read or written.
    const QString locked = writeMeter(dir, 7.5, QStringLiteral("Locked.DB"));
    const QByteArray before = digest(locked);
    QFile::setPermissions(locked, QFileDevice::ReadOwner | QFileDevice::ReadGroup);
    const Fault readOnly = upgradeFault(locked);
    EXPECT_EQ(readOnly.kind(), Fault::Kind::ReadOnly);
    EXPECT_EQ(readOnly.message(), QStringLiteral("Locked.DB file attribute is read-only."));
    EXPECT_EQ(digest(locked), before);

    // Versions above 8.6 run no step and pass.
    for (double newer : {8.6, 8.8, 9.1}) {
        const QString path = writeMeter(dir, newer);
        const QByteArray unchanged = digest(path);
        const UpgradeResult result = SchemaUpgrade::upgrade(path);
        EXPECT_TRUE(result.steps.isEmpty());
        EXPECT_DOUBLE_EQ(result.to, newer);
        EXPECT_EQ(digest(path), unchanged);
    }
}

TEST(SchemaUpgrade, LoadChecksNameTheirOwnLimits)
{
    QTemporaryDir dir;
    MeterDatabase old(writeMeter(dir, 7.4));
    QString message;
    EXPECT_TRUE(SchemaUpgrade::BlockLoadDB(old, message));
    EXPECT_EQ(message, QStringLiteral("Program cannot open this database file.\nv7.4.DB\nVersion "
                                      "7.4\nis older than version 7.6."));
    EXPECT_TRUE(SchemaUpgrade::versionGuard(old, message));
    EXPECT_EQ(message, QStringLiteral("Program cannot open this database file.\nv7.4.DB\nVersion "
                                      "7.4\nis older than version 7.5."));
    MeterDatabase fine(writeMeter(dir, 7.5));
    EXPECT_FALSE(SchemaUpgrade::BlockLoadDB(fine, message));
    EXPECT_FALSE(SchemaUpgrade::versionGuard(fine, message));
}

TEST(SchemaUpgrade, FailedOrCancelledStepLeavesTheLastWholeVersionAndResumes)
{
    QTemporaryDir dir;
    // Day 2 names hour 7, whose table is missing: the 8.3 step fails after altering others.
    const QString broken = writeMeter(dir, 7.7, QStringLiteral("Broken.DB"));
    SqliteDatabase(broken, SqliteDatabase::Mode::ReadWrite)
        .execute(QStringLiteral("UPDATE [AllHistoricalLogs] SET [Hour_7] = -1 WHERE "
                                "[LogTablesIndex] = 2"));
    const Fault fault = upgradeFault(broken);
    EXPECT_EQ(fault.step(), QStringLiteral("UpdateDB2V8_3"));
    EXPECT_EQ(fault.kind(), Fault::Kind::Other);
    EXPECT_DOUBLE_EQ(SchemaUpgrade::GetDB_Version(broken), 8.2);
    {
        SqliteDatabase db(broken, SqliteDatabase::Mode::ReadOnly);
        EXPECT_FALSE(db.columns(QStringLiteral("HistLogTimeIndex_1_0"))
                         .contains(QStringLiteral("ProfileIndex")));
        EXPECT_FALSE(db.tableExists(QStringLiteral("ScaledFormats")));
        EXPECT_TRUE(db.tableExists(QStringLiteral("Flicker_MaxMin")));
    }

    // The ladder from 8.0 has six steps: each fills a sixth of the bar, the 8.3 step (the
    // third) table by table. Cancelling at its second hour table rolls it back; the next run
    // resumes at 8.2.
    const QString path = writeMeter(dir, 8.0, QStringLiteral("Cancelled.DB"));
    LadderProgress watcher;
    watcher.cancelFrom = 2.0 / 6 + 2.0 / 3 / 6;
    const UpgradeResult cancelled = SchemaUpgrade::upgrade(path, &watcher);
    EXPECT_TRUE(cancelled.cancelled);
    EXPECT_EQ(cancelled.steps,
              QStringList({QStringLiteral("UpdateDB2V8_1"), QStringLiteral("UpdateDB2V8_2")}));
    EXPECT_DOUBLE_EQ(cancelled.to, 8.2);
    const QList<double> expected{
        0, 1.0 / 6, 2.0 / 6, 2.0 / 6, 2.0 / 6 + 1.0 / 18, 2.0 / 6 + 2.0 / 18};
    ASSERT_EQ(watcher.fractions.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(watcher.fractions.at(i), expected.at(i), 1e-9) << i;
    EXPECT_EQ(watcher.label, QStringLiteral("Updating database to v8.3, please wait. This could "
                                            "take several minutes."));
    const UpgradeResult resumed = SchemaUpgrade::upgrade(path);
    EXPECT_DOUBLE_EQ(resumed.from, 8.2);
    EXPECT_DOUBLE_EQ(resumed.to, 8.6);
    EXPECT_EQ(resumed.steps.first(), QStringLiteral("UpdateDB2V8_3"));
}

TEST(SchemaUpgrade, ScratchDatabaseComparison)
{
    QTemporaryDir dir;
    auto scratchAt = [&](double version) {
        const QString path = dir.filePath(QStringLiteral("scratch%1.TempQuery").arg(version));
        SqliteDatabase db(path, SqliteDatabase::Mode::Create);
        db.execute(QStringLiteral("CREATE TABLE [ID_Table] ([Version] REAL, [Note] TEXT)"));
        db.execute(QStringLiteral("INSERT INTO [ID_Table] VALUES (?, 'Scratch template')"),
                   {version});
        return path;
    };
    auto meterAt = [&](double version, const QString& note) {
        const QString path = writeMeter(dir, version);
        SqliteDatabase(path, SqliteDatabase::Mode::ReadWrite)
            .execute(QStringLiteral("UPDATE [ID_Table] SET [Note] = ?"), {note});
        return path;
    };

    // Not below the file: nothing happens.
    const QString same = scratchAt(8.6);
    MeterDatabase at86(meterAt(8.6, QStringLiteral("n86")));
    EXPECT_EQ(SchemaUpgrade::compareWithScratch(same, at86), 0);
    EXPECT_DOUBLE_EQ(SchemaUpgrade::GetDB_Version(same), 8.6);

    // From 8.6 the scratch copy is brought along: (9.1 - 8.6) / 0.1 = 5 steps, the first
    // one sets 8.7 with its stamp.
    MeterDatabase at91(meterAt(9.1, QStringLiteral("n91")));
    EXPECT_EQ(SchemaUpgrade::compareWithScratch(same, at91), 5);
    EXPECT_DOUBLE_EQ(SchemaUpgrade::GetDB_Version(same), 8.7);
    EXPECT_TRUE(SqliteDatabase(same, SqliteDatabase::Mode::ReadOnly)
                    .scalar(QStringLiteral("SELECT [Note] FROM [ID_Table]"))
                    .toString()
                    .startsWith(QStringLiteral("Database Updated to V8.7 on ")));

    // Below 8.6 the file is refused with the five lines.
    const QString old = scratchAt(8.5);
    try {
        SchemaUpgrade::compareWithScratch(old, at86);
        ADD_FAILURE() << "an 8.6 file passed an 8.5 scratch database";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.step(), QStringLiteral("UpdateLorvaneTempQuery"));
        EXPECT_EQ(fault.message(),
                  QStringLiteral("The DB file you have selected is newer than your system`s DB.\n"
                                 "You current software will not be able to open it.\n"
                                 "Software upgrade may be required.\n"
                                 "System DB,   v8.5, Scratch template\n"
                                 "Selected DB, v8.6, n86"));
    }
}
