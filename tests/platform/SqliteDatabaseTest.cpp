// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SqliteDatabase.h"

#include "platform/StorageError.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

StorageError::Kind openFailure(const QString& path, SqliteDatabase::Mode mode)
{
    try {
        SqliteDatabase db(path, mode);
    } catch (const StorageError& e) {
        EXPECT_EQ(e.path(), path);
        return e.kind();
    }
    ADD_FAILURE() << "opening " << path.toStdString() << " did not fail";
    return StorageError::Kind::Engine;
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

} // namespace

TEST(SqliteDatabase, OpenFailuresAreClassified)
{
    QTemporaryDir dir;
    const QString missing = dir.filePath(QStringLiteral("missing.DB"));
    EXPECT_EQ(openFailure(missing, SqliteDatabase::Mode::ReadOnly),
              StorageError::Kind::FileMissing);
    EXPECT_FALSE(QFile::exists(missing)) << "a read-only open must not create the file";

    const QString text = dir.filePath(QStringLiteral("notes.DB"));
    writeFile(text, QByteArray("Date,Value\n2024-03-01,230.1\n").repeated(200));
    EXPECT_EQ(openFailure(text, SqliteDatabase::Mode::ReadOnly), StorageError::Kind::NotADatabase);

    // A real database cut after its first page: the header promises pages that are gone.
    const QString whole = dir.filePath(QStringLiteral("whole.DB"));
    {
        SqliteDatabase db(whole, SqliteDatabase::Mode::Create);
        db.executeScript(QStringLiteral("CREATE TABLE t (a INTEGER, b TEXT);"));
        db.beginTransaction();
        SqlStatement insert = db.prepare(QStringLiteral("INSERT INTO t VALUES (?, ?)"));
        for (qint64 i = 0; i < 2000; ++i) {
            insert.bind(1, i).bind(2, QStringLiteral("row %1").arg(i)).run();
            insert.reset();
        }
        db.commit();
    }
    QFile file(whole);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const QString truncated = dir.filePath(QStringLiteral("truncated.DB"));
    writeFile(truncated, bytes.left(bytes.size() / 3));
    try {
        SqliteDatabase db(truncated, SqliteDatabase::Mode::ReadOnly);
        db.scalar(QStringLiteral("SELECT sum(a) FROM t"));
        ADD_FAILURE() << "reading a truncated file did not fail";
    } catch (const StorageError& e) {
        EXPECT_EQ(e.kind(), StorageError::Kind::NotADatabase);
    }
}

TEST(SqliteDatabase, NamesWithOddCharactersAndCaseInsensitiveLookups)
{
    QTemporaryDir dir;
    SqliteDatabase db(dir.filePath(QStringLiteral("m.DB")), SqliteDatabase::Mode::Create);
    db.executeScript(QStringLiteral("CREATE TABLE [PQLog_1] ([Date/Time] TEXT, [PQ%] REAL)"));
    db.execute(QStringLiteral("INSERT INTO [PQLog_1] VALUES (?, ?)"),
               {QStringLiteral("2024-03-01 10:00:00"), 85.5});

    EXPECT_TRUE(db.tableExists(QStringLiteral("pqlog_1")));
    EXPECT_TRUE(db.tableHasField(QStringLiteral("PQLOG_1"), QStringLiteral("pq%")));
    EXPECT_FALSE(db.tableHasField(QStringLiteral("PQLog_1"), QStringLiteral("Duration")));
    EXPECT_FALSE(db.tableHasField(QStringLiteral("NoSuchTable"), QStringLiteral("PQ%")));
    EXPECT_EQ(db.columns(QStringLiteral("PQLog_1")),
              QStringList({QStringLiteral("Date/Time"), QStringLiteral("PQ%")}));

    SqlStatement select = db.prepare(QStringLiteral("SELECT * FROM [PQLog_1]"));
    ASSERT_TRUE(select.next());
    EXPECT_DOUBLE_EQ(select.value(QStringLiteral("pq%")).toDouble(), 85.5);
    EXPECT_FALSE(select.value(QStringLiteral("Duration")).isValid());

    // A value with an apostrophe is bound, never pasted into the statement.
    const QString label = QStringLiteral("O'Neil's feeder");
    db.execute(QStringLiteral("INSERT INTO [PQLog_1] ([Date/Time]) VALUES (?)"), {label});
    EXPECT_TRUE(
        db.hasRows(QStringLiteral("SELECT 1 FROM [PQLog_1] WHERE [Date/Time] = ?"), {label}));
}

TEST(SqliteDatabase, ReadOnlyOpenNeverWrites)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("m.DB"));
    {
        SqliteDatabase db(path, SqliteDatabase::Mode::Create);
        db.executeScript(QStringLiteral("CREATE TABLE t (a INTEGER)"));
    }
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
    try {
        db.execute(QStringLiteral("INSERT INTO t VALUES (1)"));
        ADD_FAILURE() << "a read-only database accepted a write";
    } catch (const StorageError& e) {
        EXPECT_EQ(e.kind(), StorageError::Kind::ReadOnly);
    }
}

TEST(SqliteDatabase, AttachReadsAnotherFileForOneLoad)
{
    QTemporaryDir dir;
    const QString meter = dir.filePath(QStringLiteral("meter.DB"));
    {
        SqliteDatabase db(meter, SqliteDatabase::Mode::Create);
        db.executeScript(QStringLiteral("CREATE TABLE DataPoints (DataID INTEGER);"
                                        "INSERT INTO DataPoints VALUES (20617), (21017);"));
    }
    SqliteDatabase scratch(dir.filePath(QStringLiteral("scratch.TempQuery")),
                           SqliteDatabase::Mode::Create);
    scratch.attach(meter, QStringLiteral("m1"));
    EXPECT_EQ(scratch.scalar(QStringLiteral("SELECT count(*) FROM m1.DataPoints")).toInt(), 2);
    try {
        scratch.execute(QStringLiteral("INSERT INTO m1.DataPoints VALUES (1)"));
        ADD_FAILURE() << "an attached meter file took a write";
    } catch (const StorageError& e) {
        EXPECT_EQ(e.kind(), StorageError::Kind::ReadOnly);
    }
    scratch.detach(QStringLiteral("m1"));
    EXPECT_THROW(scratch.scalar(QStringLiteral("SELECT count(*) FROM m1.DataPoints")),
                 StorageError);

    // A file that is not a database is refused and leaves nothing attached.
    const QString text = dir.filePath(QStringLiteral("notes.DB"));
    writeFile(text, QByteArray("not a database\n").repeated(300));
    try {
        scratch.attach(text, QStringLiteral("m2"));
        ADD_FAILURE() << "a text file was attached";
    } catch (const StorageError& e) {
        EXPECT_EQ(e.kind(), StorageError::Kind::NotADatabase);
        EXPECT_EQ(e.path(), text);
    }
    EXPECT_FALSE(scratch.hasRows(QStringLiteral("SELECT 1 FROM pragma_database_list WHERE name "
                                                "= 'm2'")));
    // A path with blanks and a hash attaches as well.
    const QString odd = dir.filePath(QStringLiteral("Feeder #2 (old).DB"));
    QFile::copy(meter, odd);
    scratch.attach(odd, QStringLiteral("m3"));
    EXPECT_EQ(scratch.scalar(QStringLiteral("SELECT count(*) FROM m3.DataPoints")).toInt(), 2);
}
