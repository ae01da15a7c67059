// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/TextUtil.h"

#include <gtest/gtest.h>

using namespace lorvane;

TEST(TextUtil, TrimZeroTurnsBufferPaddingIntoNothing)
{
    EXPECT_EQ(TextUtil::trimZero(QString(5, QChar(u'\0'))), QString());
    EXPECT_EQ(TextUtil::trimZero(QStringLiteral("M/d/yyyy") + QString(3, QChar(u'\0'))),
              QStringLiteral("M/d/yyyy"));
    QString inner = QStringLiteral("a b");
    inner[1] = QChar(u'\0');
    EXPECT_EQ(TextUtil::trimZero(inner), QStringLiteral("a b"));
    EXPECT_EQ(TextUtil::trimZero(QStringLiteral("  h:mm ")), QStringLiteral("h:mm"));
}

TEST(TextUtil, SplitPathAtTheLastDot)
{
    auto parts = TextUtil::splitPath(QStringLiteral("C:\\Logs\\Feeder.7\\Meter.Main.DB"));
    EXPECT_EQ(parts.folder, QStringLiteral("C:\\Logs\\Feeder.7\\"));
    EXPECT_EQ(parts.name, QStringLiteral("Meter.Main"));
    EXPECT_EQ(parts.extension, QStringLiteral(".DB"));

    parts = TextUtil::splitPath(QStringLiteral("/data/logs/INTERVAL_1.db"));
    EXPECT_EQ(parts.folder, QStringLiteral("/data/logs/"));
    EXPECT_EQ(parts.name, QStringLiteral("INTERVAL_1"));
    EXPECT_EQ(parts.extension, QStringLiteral(".db"));

    // A dot in a folder name is not the file's extension.
    parts = TextUtil::splitPath(QStringLiteral("/data/v1.2/README"));
    EXPECT_EQ(parts.name, QStringLiteral("README"));
    EXPECT_EQ(parts.extension, QStringLiteral("."));

    parts = TextUtil::splitPath(QStringLiteral("Meter.DB"));
    EXPECT_EQ(parts.folder, QString());
    EXPECT_EQ(parts.name, QStringLiteral("Meter.DB"));
    EXPECT_EQ(parts.extension, QStringLiteral("."));

    parts = TextUtil::splitPath(QString());
    EXPECT_EQ(parts.name, QString());
    EXPECT_EQ(parts.extension, QStringLiteral("."));
}
