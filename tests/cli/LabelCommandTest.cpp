// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ScopedEnvironment.h"
#include "platform/SqliteDatabase.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::runProgram;

namespace {

const QString shippedDictionary = QStringLiteral(LORVANE_BIN_DIR "/QLMNameList.DB");

test::ProcessResult label(QStringList arguments)
{
    arguments.prepend(QStringLiteral("label"));
    return runProgram(QStringLiteral("lorvane-cli"), arguments);
}

} // namespace

TEST(CliLabel, LabelsOfTheShippedDictionary)
{
    const auto text =
        label({QStringLiteral("20617"), QStringLiteral("199"), QStringLiteral("12345"),
               QStringLiteral("-7"), QStringLiteral("--dictionary"), shippedDictionary});
    ASSERT_EQ(text.exitCode, 0) << text.err.toStdString();
    EXPECT_EQ(text.out, QStringLiteral("20617\tVoltage Van\n199\t199\n12345\tN/A 12345\n-7\t-7\n"));
    EXPECT_EQ(text.err, QString());

    const auto json = label({QStringLiteral("--json"), QStringLiteral("--dictionary"),
                             shippedDictionary, QStringLiteral("26003"), QStringLiteral("300001")});
    ASSERT_EQ(json.exitCode, 0) << json.err.toStdString();
    const QJsonObject object = QJsonDocument::fromJson(json.out.toUtf8()).object();
    EXPECT_EQ(object.value(QStringLiteral("dictionary")).toString(), shippedDictionary);
    const QJsonArray labels = object.value(QStringLiteral("labels")).toArray();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels.at(0).toObject().value(QStringLiteral("id")).toInt(), 26003);
    EXPECT_EQ(labels.at(0).toObject().value(QStringLiteral("label")).toString(),
              QStringLiteral("Energy kWh Delivered"));
    EXPECT_EQ(labels.at(1).toObject().value(QStringLiteral("label")).toString(),
              QStringLiteral("Pulse Counter 1"));
}

TEST(CliLabel, FindsTheDictionaryAsStartUpDoes)
{
    // The paths file in the system folder names the dictionary's folder.
    QTemporaryDir system;
    QTemporaryDir shared;
    {
        SqliteDatabase names(shared.filePath(QStringLiteral("QLMNameList.DB")),
                             SqliteDatabase::Mode::Create);
        names.executeScript(
            QStringLiteral("CREATE TABLE Devices (ID INTEGER, DeviceName TEXT);"
                           "INSERT INTO Devices VALUES (0, 'Talmo');"
                           "CREATE TABLE Namelist (GlobalID INTEGER, Label TEXT);"
                           "INSERT INTO Namelist VALUES (50000, 'From the shared folder');"));
        QFile paths(system.filePath(QStringLiteral("QLM Software Path.ini")));
        ASSERT_TRUE(paths.open(QIODevice::WriteOnly));
        paths.write(("[Data File Paths]\r\nQLMNameListdb=" + shared.path() + "\r\n").toUtf8());
    }
    test::ScopedEnvironment environment;
    environment.set("LORVANE_SYSTEM_DIR", system.path());
    environment.set("LORVANE_REG_SOFTWARE_INI_PATH", QString());

    auto result = label({QStringLiteral("50000")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, QStringLiteral("50000\tFrom the shared folder\n"));

    // Without a paths file the dictionary is the system folder's own, which is missing here.
    QFile::remove(system.filePath(QStringLiteral("QLM Software Path.ini")));
    result = label({QStringLiteral("50000")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err.trimmed(),
              QStringLiteral("The dictionary cannot be read: file not found\nDictionary: ") +
                  system.filePath(QStringLiteral("QLMNameList.DB")));
}

TEST(CliLabel, BadDictionariesAndArguments)
{
    QTemporaryDir dir;
    const QString text = dir.filePath(QStringLiteral("QLMNameList.DB"));
    {
        QFile file(text);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("not a dictionary\n").repeated(200));
    }
    auto result = label({QStringLiteral("20617"), QStringLiteral("--dictionary"), text});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.out, QString());
    EXPECT_EQ(result.err.trimmed(),
              QStringLiteral("The dictionary cannot be read: file is not a database\n"
                             "Dictionary: ") +
                  text);

    const QString foreign = dir.filePath(QStringLiteral("Meter.DB"));
    SqliteDatabase(foreign, SqliteDatabase::Mode::Create)
        .execute(QStringLiteral("CREATE TABLE Types (ID INTEGER, ReferenceID INTEGER, Name TEXT)"));
    result = label({QStringLiteral("20617"), QStringLiteral("--dictionary"), foreign});
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_EQ(result.err.trimmed(),
              foreign + QStringLiteral(" is not a device dictionary: it has no readable Devices "
                                       "table"));

    for (const QStringList& arguments :
         {QStringList{}, QStringList{QStringLiteral("2x")},
          QStringList{QStringLiteral("4294967296")},
          QStringList{QStringLiteral("1"), QStringLiteral("--dictionary")},
          QStringList{QStringLiteral("1"), QStringLiteral("--csv")}}) {
        result = label(arguments);
        EXPECT_EQ(result.exitCode, 1) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(result.err.contains(QStringLiteral("usage: lorvane-cli")));
        EXPECT_EQ(result.out, QString());
    }
    EXPECT_TRUE(label({QStringLiteral("2x")})
                    .err.startsWith(QStringLiteral("lorvane-cli: not a data point id")));
}
