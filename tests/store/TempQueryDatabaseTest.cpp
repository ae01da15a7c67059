// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/TempQueryDatabase.h"

#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace lorvane;

namespace {

QString shippedTemplate()
{
    return test::dataFolder() + QStringLiteral("/Resource/LorvaneTempQuery.DB");
}

QStringList everyFile(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System);
}

bool isWritable(const QString& path)
{
    return QFile::permissions(path) & QFileDevice::WriteOwner;
}

StorageError::Kind createFailure(const QString& templatePath, const QString& folder)
{
    try {
        TempQueryDatabase::create(templatePath, folder, 77);
    } catch (const StorageError& error) {
        return error.kind();
    }
    ADD_FAILURE() << "create() succeeded with " << qPrintable(templatePath);
    return StorageError::Kind::Engine;
}

} // namespace

TEST(TempQueryDatabase, WorkingFileNameHasNoLeadingZeros)
{
    const QDateTime early(QDate(2024, 3, 5), QTime(7, 8, 9));
    EXPECT_EQ(TempQueryDatabase::workingFileName(early, 4321),
              QStringLiteral("tempqueryfile_2024_3_5_7_8_9_PID_4321.TempQuery"));
    const QDateTime late(QDate(2025, 12, 31), QTime(23, 59, 0));
    EXPECT_EQ(TempQueryDatabase::workingFileName(late, 7),
              QStringLiteral("tempqueryfile_2025_12_31_23_59_0_PID_7.TempQuery"));
}

TEST(TempQueryDatabase, WorkingCopyIsWritableAndGoneAfterTheRun)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString scratchFolder = dir.filePath(QStringLiteral("TempQuery"));
    const QByteArray templateBytes = [] {
        QFile file(shippedTemplate());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    ASSERT_FALSE(templateBytes.isEmpty()) << "scratch template not built";

    auto scratch = TempQueryDatabase::create(shippedTemplate(), scratchFolder, 4242);
    const QFileInfo file(scratch->path());
    EXPECT_TRUE(file.isFile());
    EXPECT_EQ(file.dir().canonicalPath(), QDir(scratchFolder).canonicalPath());
    EXPECT_TRUE(file.fileName().startsWith(QStringLiteral("tempqueryfile_")));
    EXPECT_TRUE(file.fileName().endsWith(QStringLiteral("_PID_4242.TempQuery")));
    EXPECT_EQ(everyFile(scratchFolder).size(), 1) << "no partial copy may be left";
    EXPECT_TRUE(isWritable(scratch->path()));
    EXPECT_NEAR(scratch->version(), 8.6, 1e-9);
    EXPECT_FALSE(scratch->note().isEmpty());

    // The catalogue numbers queries from 1, and writing goes to the copy only.
    SqliteDatabase& db = scratch->database();
    db.execute(QStringLiteral("INSERT INTO AllQueries ([StartDate/Time], [EndDate/Time], "
                              "QueryType) VALUES (?, ?, ?)"),
               {QStringLiteral("2024-03-01 00:00:00"), QStringLiteral("2024-03-02 00:00:00"), 3});
    EXPECT_EQ(db.lastInsertRowId(), 1);
    QFile original(shippedTemplate());
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    EXPECT_EQ(original.readAll(), templateBytes);

    const QString path = scratch->path();
    scratch->closeAndDelete();
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_TRUE(everyFile(scratchFolder).isEmpty());
}

TEST(TempQueryDatabase, WorkingTablesComeFromTheTemplateWithDeviceIndexMinusOne)
{
    QTemporaryDir dir;
    auto scratch = TempQueryDatabase::create(shippedTemplate(), dir.path(), 1);
    SqliteDatabase& db = scratch->database();

    EXPECT_EQ(scratch->createWorkingTable(QStringLiteral("HLogTimeIndex_"), 3),
              QStringLiteral("HLogTimeIndex_3"));
    EXPECT_EQ(db.columns(QStringLiteral("HLogTimeIndex_3")),
              db.columns(QStringLiteral("HLogTimeIndextmp")));
    EXPECT_EQ(scratch->createWorkingTable(QStringLiteral("TagNames_"), 12, 4),
              QStringLiteral("TagNames_12_4"));

    // A row inserted without a device arrives untagged, as the loaders' stamping expects.
    db.execute(QStringLiteral("INSERT INTO [TagNames_12_4] (DataID) VALUES (?)"), {20617});
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT DeviceIndex FROM [TagNames_12_4]")).toInt(), -1);
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT LogSource FROM [TagNames_12_4]")).toInt(), -1);

    // Making it again starts from an empty table; the template itself stays empty.
    scratch->createWorkingTable(QStringLiteral("TagNames_"), 12, 4);
    EXPECT_FALSE(db.hasRows(QStringLiteral("SELECT 1 FROM [TagNames_12_4]")));
    EXPECT_FALSE(db.hasRows(QStringLiteral("SELECT 1 FROM [TagNamestmp]")));

    // Names with odd characters survive the copy of the CREATE text.
    scratch->createWorkingTable(QStringLiteral("PQLog"), 2, 1);
    EXPECT_TRUE(db.tableHasField(QStringLiteral("PQLog_2_1"), QStringLiteral("PQ%")));

    for (const auto& [base, query] : {std::pair{QStringLiteral("NoSuchTable"), qint64(1)},
                                      std::pair{QStringLiteral("HLogTimeIndex"), qint64(-1)}}) {
        try {
            scratch->createWorkingTable(base, query);
            ADD_FAILURE() << "accepted " << qPrintable(base) << " " << query;
        } catch (const StorageError& error) {
            EXPECT_EQ(error.kind(), StorageError::Kind::Engine);
        }
    }
    scratch->closeAndDelete();
}

TEST(TempQueryDatabase, OldTemplateGainsNominalVoltageOnceAndStaysReadOnly)
{
    QTemporaryDir dir;
    const QString templatePath = dir.filePath(QStringLiteral("LorvaneTempQuery.DB"));
    {
        SqliteDatabase old(templatePath, SqliteDatabase::Mode::Create);
        old.executeScript(QStringLiteral(
            "CREATE TABLE ID_Table (Version REAL, Note TEXT);"
            "INSERT INTO ID_Table VALUES (8.6, 'old template');"
            "CREATE TABLE PQTestLogsDetail (PQTestLogsDetail_ID INTEGER, MeterName TEXT);"
            "INSERT INTO PQTestLogsDetail VALUES (1, 'Feeder 1');"));
    }
    QFile::setPermissions(templatePath, QFileDevice::ReadOwner | QFileDevice::ReadGroup);

    for (int run = 1; run <= 2; ++run) {
        SCOPED_TRACE(run);
        EXPECT_TRUE(TempQueryDatabase::upgradeTemplate(templatePath));
        EXPECT_FALSE(isWritable(templatePath));
        const QStringList columns = SqliteDatabase(templatePath, SqliteDatabase::Mode::ReadOnly)
                                        .columns(QStringLiteral("PQTestLogsDetail"));
        EXPECT_EQ(columns,
                  (QStringList{QStringLiteral("PQTestLogsDetail_ID"), QStringLiteral("MeterName"),
                               QStringLiteral("NominalVoltage")}));
    }
    SqliteDatabase upgraded(templatePath, SqliteDatabase::Mode::ReadOnly);
    EXPECT_EQ(upgraded.scalar(QStringLiteral("SELECT NominalVoltage FROM PQTestLogsDetail")),
              QVariant(0));

    // A copy of the read-only template is a normal, writable file.
    auto scratch = TempQueryDatabase::create(templatePath, dir.filePath(QStringLiteral("s")), 9);
    EXPECT_TRUE(isWritable(scratch->path()));
    scratch->database().execute(QStringLiteral("DELETE FROM PQTestLogsDetail"));
    scratch->closeAndDelete();

    // The shipped template already has the column: upgrading changes no byte of it.
    const QString shipped = dir.filePath(QStringLiteral("shipped.DB"));
    ASSERT_TRUE(QFile::copy(shippedTemplate(), shipped));
    QFile before(shipped);
    ASSERT_TRUE(before.open(QIODevice::ReadOnly));
    const QByteArray bytes = before.readAll();
    before.close();
    EXPECT_TRUE(TempQueryDatabase::upgradeTemplate(shipped));
    ASSERT_TRUE(before.open(QIODevice::ReadOnly));
    EXPECT_EQ(before.readAll(), bytes);
}

TEST(TempQueryDatabase, MissingOrDamagedTemplateLeavesNoFile)
{
    QTemporaryDir dir;
    const QString missing = dir.filePath(QStringLiteral("absent/LorvaneTempQuery.DB"));
    EXPECT_FALSE(TempQueryDatabase::upgradeTemplate(missing));
    EXPECT_FALSE(QFileInfo::exists(missing));

    const QString folder = dir.filePath(QStringLiteral("TempQuery"));
    EXPECT_EQ(createFailure(missing, folder), StorageError::Kind::FileMissing);
    EXPECT_TRUE(everyFile(folder).isEmpty());

    const QString damaged = dir.filePath(QStringLiteral("damaged.DB"));
    QFile file(damaged);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4096, 'x'));
    file.close();
    EXPECT_EQ(createFailure(damaged, folder), StorageError::Kind::NotADatabase);
    EXPECT_TRUE(everyFile(folder).isEmpty());
}

TEST(TempQueryDatabase, ReadOnlyScratchFolderIsAStorageError)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "running as root: permission bits do not stop writes";
    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("TempQuery"));
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    EXPECT_EQ(createFailure(shippedTemplate(), folder), StorageError::Kind::ReadOnly);
    EXPECT_EQ(createFailure(shippedTemplate(), folder + QStringLiteral("/below")),
              StorageError::Kind::ReadOnly);
    QFile::setPermissions(folder,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    EXPECT_TRUE(everyFile(folder).isEmpty());
}
