// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli upgrade on files that lorvane-sim writes at every older schema version: each
// file holds exactly its version's layout, and once upgraded it reads like an 8.6 file of the
// same seed. Refused files keep their bytes, and an upgrade killed in the middle of the 8.3
// hour-table walk leaves a whole version from which the next run resumes.
#include "platform/SqliteDatabase.h"
#include "store/MeterSchema.h"
#include "store/SchemaUpgrade.h"
#include "support/TestEnvironment.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::runProgram;

namespace {

QString simulate(const QTemporaryDir& dir, const QString& version, const QStringList& extra = {})
{
    const QString out = dir.filePath(QStringLiteral("v%1.DB").arg(version));
    const auto result = runProgram(
        QStringLiteral("lorvane-sim"),
        QStringList{QStringLiteral("--out"), out, QStringLiteral("--schema-version"), version,
                    QStringLiteral("--seed"), QStringLiteral("5"), QStringLiteral("--days"),
                    QStringLiteral("1"), QStringLiteral("--interval-minutes"), QStringLiteral("30"),
                    QStringLiteral("--points"), QStringLiteral("4")} +
            extra);
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return out;
}

QJsonObject cliJson(const QString& command, const QString& path)
{
    const auto result =
        runProgram(QStringLiteral("lorvane-cli"), {command, path, QStringLiteral("--json")});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return QJsonDocument::fromJson(result.out.toUtf8()).object();
}

bool perLogTable(const QString& table)
{
    static const QRegularExpression numbered(QStringLiteral("_\\d+(_\\d+)?$"));
    return numbered.match(table).hasMatch();
}

/// Every row of a table over the given columns, each as one text, sorted.
QStringList rows(SqliteDatabase& db, const QString& table, const QStringList& columns)
{
    QStringList quoted;
    for (const QString& column : columns)
        quoted << QLatin1Char('[') + column + QLatin1Char(']');
    SqlStatement select =
        db.prepare(QStringLiteral("SELECT %1 FROM [%2]").arg(quoted.join(QLatin1Char(',')), table));
    QStringList texts;
    while (select.next()) {
        QStringList cells;
        for (int i = 0; i < columns.size(); ++i)
            cells << (select.isNull(i) ? QStringLiteral("<null>") : select.value(i).toString());
        texts << cells.join(QLatin1Char('|'));
    }
    texts.sort();
    return texts;
}

QStringList sorted(QStringList list)
{
    list.sort(Qt::CaseInsensitive);
    return list;
}

/// The info report of the 8.6 file as an upgraded file of `version` must read: without the
/// logs the older version could not hold and with the defaults the steps give.
QJsonObject expectedAfterUpgrade(QJsonObject report, double version, const QString& file)
{
    QList<int> absent;
    if (version < 7.9 - 1e-9)
        absent << 6 << 7;
    if (version < 8.1 - 1e-9)
        absent << 8;
    if (version < 8.4 - 1e-9)
        absent << 11;
    absent << 13; // EN 50160 tests come with the 8.6 table, empty after the ladder
    QJsonArray logs;
    for (const QJsonValue& entry : report.value(QStringLiteral("logs")).toArray()) {
        if (!absent.contains(entry.toObject().value(QStringLiteral("logKind")).toInt()))
            logs.append(entry);
    }
    report.insert(QStringLiteral("logs"), logs);
    QJsonArray available = report.value(QStringLiteral("logAvailable")).toArray();
    for (int kind : absent) {
        QJsonObject entry = available.at(kind).toObject();
        entry.insert(QStringLiteral("available"), false);
        available.replace(kind, entry);
    }
    report.insert(QStringLiteral("logAvailable"), available);
    QJsonObject device = report.value(QStringLiteral("device")).toObject();
    device.insert(QStringLiteral("HasNominalVoltage"), false);
    if (version < 8.0 - 1e-9)
        device.insert(QStringLiteral("FirmwareInfo3"), QStringLiteral("N/A"));
    device.insert(QStringLiteral("FileName"), QFileInfo(file).fileName());
    device.insert(QStringLiteral("FilePath"), file);
    report.insert(QStringLiteral("device"), device);
    report.insert(QStringLiteral("file"), file);
    report.remove(QStringLiteral("note"));
    report.remove(QStringLiteral("version"));
    return report;
}

QByteArray digest(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

} // namespace

TEST(UpgradeCommand, EveryOlderSimulatedVersionReadsLikeTheCurrentOneAfterTheLadder)
{
    QTemporaryDir dir;
    const QString current = simulate(dir, QStringLiteral("8.6"));
    const QJsonObject currentInfo = cliJson(QStringLiteral("info"), current);
    SqliteDatabase reference(current, SqliteDatabase::Mode::ReadOnly);
    const MeterSchema currentSchema;

    for (const char* text :
         {"7.5", "7.6", "7.7", "7.9", "8.0", "8.1", "8.2", "8.3", "8.4", "8.5"}) {
        SCOPED_TRACE(text);
        const double version = QString::fromLatin1(text).toDouble();
        const QString path = simulate(dir, QString::fromLatin1(text));
        const QString original = path + QStringLiteral(".orig");
        ASSERT_TRUE(QFile::copy(path, original));

        // The simulator writes exactly the layout of the version.
        const MeterSchema schema(version);
        QStringList fileWide;
        {
            SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
            for (const TableLayout& layout : schema.fileTables()) {
                fileWide << layout.name();
                EXPECT_EQ(db.columns(layout.name()), layout.columnNames())
                    << layout.name().toStdString();
            }
            for (const QString& table : db.tables()) {
                if (!perLogTable(table)) {
                    EXPECT_TRUE(fileWide.contains(table)) << table.toStdString();
                }
            }
            EXPECT_EQ(db.columns(QStringLiteral("HistLogTimeIndex_1_0")),
                      schema.hourTimeIndexTable(LogKind::Snapshots, 1, 0).columnNames());
        }

        const QJsonObject upgrade = cliJson(QStringLiteral("upgrade"), path);
        EXPECT_DOUBLE_EQ(upgrade.value(QStringLiteral("from")).toDouble(), version);
        EXPECT_DOUBLE_EQ(upgrade.value(QStringLiteral("to")).toDouble(), 8.6);
        EXPECT_EQ(upgrade.value(QStringLiteral("steps")).toArray().last().toString(),
                  QStringLiteral("UpdateDB2V8_6"));

        QJsonObject info = cliJson(QStringLiteral("info"), path);
        EXPECT_DOUBLE_EQ(info.value(QStringLiteral("version")).toDouble(), 8.6);
        info.remove(QStringLiteral("note"));
        info.remove(QStringLiteral("version"));
        EXPECT_EQ(info, expectedAfterUpgrade(currentInfo, version, path))
            << QJsonDocument(info).toJson().toStdString();

        // Same tables and columns as the 8.6 file and its schema; the rows the old file held
        // are unchanged, and they are the 8.6 file's rows (AllLogs entry times follow the
        // number of logs written, so that table is left out of the second comparison).
        SqliteDatabase upgraded(path, SqliteDatabase::Mode::ReadOnly);
        SqliteDatabase old(original, SqliteDatabase::Mode::ReadOnly);
        // The ladder's AllPQTestLogs has no NominalVoltage: only a meter that knows its
        // nominal voltage writes that column.
        const auto ladderColumns = [](const QString& table, QStringList columns) {
            if (table == QLatin1String("AllPQTestLogs"))
                columns.removeAll(QStringLiteral("NominalVoltage"));
            return sorted(columns);
        };
        for (const TableLayout& layout : currentSchema.fileTables()) {
            EXPECT_EQ(sorted(upgraded.columns(layout.name())),
                      ladderColumns(layout.name(), layout.columnNames()))
                << layout.name().toStdString();
        }
        for (const QString& table : upgraded.tables()) {
            EXPECT_EQ(sorted(upgraded.columns(table)),
                      ladderColumns(table, reference.columns(table)))
                << table.toStdString();
        }
        for (const QString& table : old.tables()) {
            if (table == QLatin1String("ID_Table"))
                continue;
            const QStringList columns = old.columns(table);
            const QStringList before = rows(old, table, columns);
            EXPECT_EQ(rows(upgraded, table, columns), before) << table.toStdString();
            if (table == QLatin1String("AllLogs"))
                continue;
            const QStringList written = rows(reference, table, columns);
            for (const QString& row : before)
                EXPECT_TRUE(written.contains(row))
                    << table.toStdString() << ": " << row.left(200).toStdString();
        }
    }
}

TEST(UpgradeCommand, FaultsAndRefusalsEndWithTheirMessageAndCode)
{
    QTemporaryDir dir;
    struct Case
    {
        const char* version;
        int exitCode;
        const char* message;
    };
    const Case cases[] = {{"7.8", 5, "Invalid database version 7.8 \nProgram will end.\n"},
                          {"7.55", 7,
                           "Current database file:\nv7.55.DB\nVersion 7.55\ncannot be "
                           "upgraded.  Please start with a new file.\n"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.version);
        const QString path = simulate(dir, QString::fromLatin1(c.version));
        const QByteArray before = digest(path);
        const auto result =
            runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("upgrade"), path});
        EXPECT_EQ(result.exitCode, c.exitCode);
        EXPECT_TRUE(result.err.endsWith(QString::fromLatin1(c.message)))
            << result.err.toStdString();
        EXPECT_TRUE(result.out.isEmpty());
        EXPECT_EQ(digest(path), before);
    }

    const QString locked = simulate(dir, QStringLiteral("7.6"));
    QFile::setPermissions(locked, QFileDevice::ReadOwner);
    const QByteArray before = digest(locked);
    const auto refused =
        runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("upgrade"), locked});
    EXPECT_EQ(refused.exitCode, 7);
    EXPECT_TRUE(refused.err.contains(QStringLiteral("v7.6.DB file attribute is read-only.")));
    EXPECT_EQ(digest(locked), before);

    const QString newer = simulate(dir, QStringLiteral("9.1"));
    const QJsonObject none = cliJson(QStringLiteral("upgrade"), newer);
    EXPECT_TRUE(none.value(QStringLiteral("steps")).toArray().isEmpty());
    EXPECT_DOUBLE_EQ(none.value(QStringLiteral("to")).toDouble(), 9.1);

    const auto missing = runProgram(QStringLiteral("lorvane-cli"),
                                    {QStringLiteral("upgrade"), dir.filePath("none.DB")});
    EXPECT_EQ(missing.exitCode, 2);
}

TEST(UpgradeCommand, KilledDuringTheHourTableWalkResumesFromAWholeVersion)
{
    QTemporaryDir dir;
    // Four days of hourly snapshots: about 90 hour tables (the meter is down for a while).
    const QString path = simulate(dir, QStringLiteral("7.5"),
                                  {QStringLiteral("--days"), QStringLiteral("4"),
                                   QStringLiteral("--interval-minutes"), QStringLiteral("60")});
    QProcess walker;
    walker.start(test::programPath(QStringLiteral("upgrade_walker")), {path, QStringLiteral("40")});
    ASSERT_TRUE(walker.waitForStarted());
    bool reached = false;
    while (!reached && walker.waitForReadyRead(20000)) {
        while (walker.canReadLine())
            reached = reached || walker.readLine().trimmed() == "table 30";
    }
    ASSERT_TRUE(reached) << walker.readAllStandardError().toStdString();
    walker.kill(); // SIGKILL: no clean-up of any kind
    ASSERT_TRUE(walker.waitForFinished());

    // The steps before 8.3 were whole; the 8.3 step is rolled back from its journal.
    EXPECT_DOUBLE_EQ(SchemaUpgrade::GetDB_Version(path), 8.2);
    {
        SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
        EXPECT_EQ(db.scalar(QStringLiteral("PRAGMA integrity_check")).toString(),
                  QStringLiteral("ok"));
        EXPECT_FALSE(db.columns(QStringLiteral("HistLogTimeIndex_1_0"))
                         .contains(QStringLiteral("ProfileIndex")));
        EXPECT_FALSE(db.tableExists(QStringLiteral("ScaledFormats")));
    }

    const QJsonObject resumed = cliJson(QStringLiteral("upgrade"), path);
    EXPECT_DOUBLE_EQ(resumed.value(QStringLiteral("from")).toDouble(), 8.2);
    EXPECT_DOUBLE_EQ(resumed.value(QStringLiteral("to")).toDouble(), 8.6);
    EXPECT_EQ(resumed.value(QStringLiteral("steps")).toArray().first().toString(),
              QStringLiteral("UpdateDB2V8_3"));
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
    const QString hourTables = QStringLiteral(
        "SELECT COUNT(*) FROM sqlite_master WHERE name LIKE 'HistLogTimeIndex!_%' ESCAPE '!'");
    const qint64 all = db.scalar(hourTables).toLongLong();
    EXPECT_EQ(db.scalar(hourTables + QStringLiteral(" AND sql LIKE '%ProfileIndex%'")).toLongLong(),
              all);
    EXPECT_GT(all, 80);
}
