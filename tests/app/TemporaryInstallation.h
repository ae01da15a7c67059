// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SqliteDatabase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace lorvane::test {

/// An installation built in a temporary folder: bin/ (the system folder, with the paths file
/// and the dictionary), share/lorvane/ (program data with sysimage, Resource holding a scratch
/// template, TempQuery, Logs) and harvester/ (the converter's folder).
class TemporaryInstallation
{
public:
    enum class Dictionary
    {
        Good,
        Damaged,
        WithoutDevices,
        Missing
    };

    explicit TemporaryInstallation(Dictionary dictionary = Dictionary::Good)
    {
        QDir root(m_root.path());
        for (const char* folder : {"bin", "share/lorvane/sysimage", "share/lorvane/Resource",
                                   "share/lorvane/TempQuery", "share/lorvane/Logs", "harvester"})
            root.mkpath(QString::fromLatin1(folder));
        writeTemplate();
        writeDictionary(dictionary);
    }

    QString root() const { return m_root.path(); }
    QString systemFolder() const { return m_root.filePath(QStringLiteral("bin")); }
    QString dataFolder() const { return m_root.filePath(QStringLiteral("share/lorvane")); }
    QString harvesterFolder() const { return m_root.filePath(QStringLiteral("harvester")); }
    QString pathsFile() const { return systemFolder() + QStringLiteral("/QLM Software Path.ini"); }
    QString scratchFolder() const { return dataFolder() + QStringLiteral("/TempQuery"); }

    /// Writes the paths file of this installation; `separator` "\\" stores Windows-style paths.
    void writePathsFile(const QString& separator = QStringLiteral("/")) const
    {
        const auto stored = [&](QString path) { return path.replace(u'/', separator); };
        writeText(pathsFile(),
                  QStringLiteral("[QLM Lorvane]\nUserDataPath=%1\nProgDataPath=%2\n"
                                 "ProgPath=%3\n[QLM Harvester]\nProgPath=%4\n"
                                 "[Data File Paths]\nQLMNameListdb=%5\n")
                      .arg(stored(root() + QStringLiteral("/user/")), stored(dataFolder()),
                           stored(systemFolder()),
                           stored(harvesterFolder() + QStringLiteral("/Harvester.exe")),
                           stored(systemFolder())));
    }

    static void writeText(const QString& path, const QString& text)
    {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            file.write(text.toUtf8());
    }

    /// The "*.TempQuery" files of the scratch folder.
    QStringList scratchFiles() const
    {
        return QDir(scratchFolder()).entryList({QStringLiteral("*.TempQuery")}, QDir::Files);
    }

private:
    void writeTemplate() const
    {
        SqliteDatabase db(dataFolder() + QStringLiteral("/Resource/LorvaneTempQuery.DB"),
                          SqliteDatabase::Mode::Create);
        db.executeScript(QStringLiteral(
            "CREATE TABLE ID_Table (Version REAL, Note TEXT);"
            "INSERT INTO ID_Table VALUES (8.6, 'test template');"
            "CREATE TABLE PQTestLogsDetail (PQTestLogsDetail_ID INTEGER, PQTestLogs_ID INTEGER);"));
    }

    void writeDictionary(Dictionary kind) const
    {
        const QString path = systemFolder() + QStringLiteral("/QLMNameList.DB");
        if (kind == Dictionary::Missing)
            return;
        if (kind == Dictionary::Damaged) {
            writeText(path, QStringLiteral("this is not a database, only text that looks damaged"));
            return;
        }
        SqliteDatabase db(path, SqliteDatabase::Mode::Create);
        if (kind == Dictionary::WithoutDevices) {
            db.execute(QStringLiteral("CREATE TABLE Types (ID INTEGER, Name TEXT)"));
            return;
        }
        db.executeScript(QStringLiteral("CREATE TABLE Devices (ID INTEGER, DeviceName TEXT);"
                                        "INSERT INTO Devices VALUES (5, 'Split Log Meter');"
                                        "INSERT INTO Devices VALUES (2, 'Panel Meter');"
                                        "CREATE TABLE Types (ID INTEGER, ReferenceID INTEGER, "
                                        "Name TEXT);"
                                        "INSERT INTO Types VALUES (103, 103, 'Voltage');"
                                        "CREATE TABLE Type_103 (ID INTEGER, Name TEXT);"
                                        "INSERT INTO Type_103 VALUES (17, 'Van');"
                                        "CREATE TABLE DeviceScaledFormats_3_1 (ScaleIndex "
                                        "INTEGER, DataIndex INTEGER, FormatID INTEGER);"
                                        "INSERT INTO DeviceScaledFormats_3_1 VALUES (1, 26003, "
                                        "4);"));
    }

    QTemporaryDir m_root;
};

} // namespace lorvane::test
