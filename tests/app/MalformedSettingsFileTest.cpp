// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ProfileFile.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::ProfileFile;

namespace {

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(MalformedSettingsFile, ReadsWhatCanBeRead)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("Lorvane.Ini");
    // A key before any section, a line without "=", an unterminated quote, a header without
    // its bracket, mixed line ends and a final line without a line end.
    writeBytes(path, "Orphan=1\r\njust some words\r\n[LocalSystem]\nno equals here\r\n"
                     "DefaultPath=\"/data/open quote\r\n=no name\n  TempLogRecSize = 700\r\n"
                     "[Broken\nKey=inside\r\n[Last]\r\nEnd=yes");
    const ProfileFile file(path);
    EXPECT_EQ(file.readString("", "Orphan", "none"), "none");
    EXPECT_EQ(file.readString("LocalSystem", "Orphan", "none"), "none");
    EXPECT_EQ(file.readString("LocalSystem", "no equals here", "none"), "none");
    EXPECT_EQ(file.readString("LocalSystem", "DefaultPath", ""), "\"/data/open quote");
    EXPECT_EQ(file.readString("LocalSystem", "TempLogRecSize", ""), "700");
    EXPECT_EQ(file.readString("Broken", "Key", ""), "inside");
    EXPECT_EQ(file.readString("Last", "End", ""), "yes");
    EXPECT_EQ(file.sectionNames(), QStringList({"LocalSystem", "Broken", "Last"}));
    EXPECT_EQ(file.keyNames("localsystem"), QStringList({"DefaultPath", "", "TempLogRecSize"}));

    // Writing into it changes only the line of the key and ends the last line.
    ProfileFile writable(path);
    ASSERT_TRUE(writable.writeString("LocalSystem", "TempLogRecSize", "900"));
    ASSERT_TRUE(writable.writeString("Last", "Added", "1"));
    EXPECT_EQ(bytesOf(path),
              QByteArray("Orphan=1\r\njust some words\r\n[LocalSystem]\nno equals here\r\n"
                         "DefaultPath=\"/data/open quote\r\n=no name\nTempLogRecSize=900\r\n"
                         "[Broken\nKey=inside\r\n[Last]\r\nEnd=yes\r\nAdded=1\r\n"));
}

TEST(MalformedSettingsFile, ByteOrderMarksAndCodePagesSurviveAWrite)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("Lorvane.Ini");

    // UTF-8 with a byte order mark right before the first header.
    const QByteArray utf8 = "\xEF\xBB\xBF[LocalSystem]\r\nDefaultPath=/d\xC3\xA9j\xC3\xA0\r\n";
    writeBytes(path, utf8);
    ProfileFile file(path);
    EXPECT_EQ(file.readString("LocalSystem", "DefaultPath", ""), QString::fromUtf8("/déjà"));
    ASSERT_TRUE(file.writeString("LocalSystem", "AutoLoadDBs", "Yes"));
    EXPECT_EQ(bytesOf(path), utf8 + "AutoLoadDBs=Yes\r\n");

    // An 8-bit code page (not valid UTF-8): read as Latin-1, written back byte for byte.
    const QByteArray latin = "; Z\xE4hler\n[LocalSystem]\nDefaultPath=C:\\Me\xDF"
                             "daten\n";
    writeBytes(path, latin);
    EXPECT_EQ(file.readString("LocalSystem", "DefaultPath", ""), QStringLiteral("C:\\Meßdaten"));
    ASSERT_TRUE(file.writeString("LocalSystem", "AutoLoadDBs", "No"));
    EXPECT_EQ(bytesOf(path), latin + "AutoLoadDBs=No\n");

    // UTF-16 with its byte order mark, as another editor may save it.
    const QString text = QStringLiteral("[LocalSystem]\r\nTempLogRecSize=600\r\n");
    QByteArray utf16("\xFF\xFE", 2);
    utf16.append(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    writeBytes(path, utf16);
    EXPECT_EQ(file.readString("LocalSystem", "TempLogRecSize", ""), "600");
    ASSERT_TRUE(file.writeString("LocalSystem", "TempLogRecSize", "700"));
    const QByteArray written = bytesOf(path);
    ASSERT_TRUE(written.startsWith("\xFF\xFE"));
    EXPECT_EQ(QString::fromUtf16(reinterpret_cast<const char16_t*>(written.constData() + 2),
                                 (written.size() - 2) / 2),
              "[LocalSystem]\r\nTempLogRecSize=700\r\n");
}

TEST(MalformedSettingsFile, RefusesWritesThatWouldChangeOtherKeysAndSurvivesGarbage)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("Lorvane.Ini");
    writeBytes(path, "[LocalSystem]\nTempLogRecSize=700\n");
    ProfileFile file(path);
    EXPECT_FALSE(file.writeString("LocalSystem", "DefaultPath", "/a\n[Injected]\nx=1"));
    EXPECT_FALSE(file.writeString("LocalSystem", "Key=Value", "1"));
    EXPECT_FALSE(file.writeString("LocalSystem", "  ", "1"));
    EXPECT_FALSE(file.writeString("LocalSystem", ";comment", "1"));
    EXPECT_FALSE(file.writeString("Local]System", "Key", "1"));
    EXPECT_EQ(bytesOf(path), "[LocalSystem]\nTempLogRecSize=700\n");

    // Random bytes never crash a read or a write, and a write still leaves a readable key.
    QRandomGenerator random(20240611);
    for (int round = 0; round < 50; ++round) {
        QByteArray garbage(1 + random.bounded(400), '\0');
        for (char& byte : garbage)
            byte = static_cast<char>(random.bounded(256));
        writeBytes(path, garbage);
        file.readString("LocalSystem", "TempLogRecSize", "4500");
        file.sectionNames();
        ASSERT_TRUE(file.writeString("Probe", "Key", "value"));
        EXPECT_EQ(file.readString("Probe", "Key", ""), "value") << garbage.toHex().constData();
    }
}
