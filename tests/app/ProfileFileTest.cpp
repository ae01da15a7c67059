// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ProfileFile.h"

#include "TemporaryInstallation.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::ProfileFile;

namespace {

QString readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

TEST(ProfileFile, ReadsLikeTheProfileCalls)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.ini"));
    lorvane::test::TemporaryInstallation::writeText(
        path, QStringLiteral("; comment=1\r\n[First]\r\n  Name  =  spaced value  \r\n"
                             "Quoted=\"  inner  \"\r\nEmpty=\r\n;Hidden=yes\r\n"
                             "[second]\r\nName=other\r\n[FIRST]\r\nName=later section\r\n"));
    const ProfileFile file(path);
    EXPECT_EQ(file.readString("first", "NAME", "d"), "spaced value");
    EXPECT_EQ(file.readString("First", "Quoted", "d"), "  inner  ");
    EXPECT_EQ(file.readString("First", "Empty", "d"), "");
    EXPECT_TRUE(file.hasKey("First", "Empty"));
    EXPECT_EQ(file.readString("First", "Hidden", "d"), "d");
    EXPECT_EQ(file.readString("Second", "Name", "d"), "other");
    EXPECT_EQ(file.readString("Third", "Name", "def  "), "def");
    // The buffer holds its terminator: a size of 6 gives 5 characters, of default text too.
    EXPECT_EQ(file.readString("First", "Name", "d", 6), "space");
    EXPECT_EQ(file.readString("First", "Missing", "0123456789", 4), "012");
    EXPECT_EQ(ProfileFile(dir.filePath("none.ini")).readString("First", "Name", "d"), "d");
}

TEST(ProfileFile, WritesOneKeyAndKeepsTheRest)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("b.ini"));
    lorvane::test::TemporaryInstallation::writeText(
        path, QStringLiteral("; keep me\n[A]\nx=1\n; note in A\ny=2\n\n[B]\nz=3\n"));
    ProfileFile file(path);
    ASSERT_TRUE(file.writeString("a", "X", "10"));
    ASSERT_TRUE(file.writeString("A", "new", "n"));
    ASSERT_TRUE(file.writeString("C", "w", "4"));
    EXPECT_EQ(readAll(path),
              "; keep me\n[A]\nX=10\n; note in A\ny=2\nnew=n\n\n[B]\nz=3\n\n[C]\nw=4\n");
    EXPECT_EQ(file.readString("A", "x", ""), "10");

    // A missing file is created with Windows line ends; a folder that is missing is refused.
    ProfileFile fresh(dir.filePath(QStringLiteral("fresh.ini")));
    ASSERT_TRUE(fresh.writeString("S", "k", "v"));
    EXPECT_EQ(readAll(fresh.path()), "[S]\r\nk=v\r\n");
    EXPECT_FALSE(ProfileFile(dir.filePath("no/such/folder.ini")).writeString("S", "k", "v"));
}
