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
