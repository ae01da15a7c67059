// SPDX-License-Identifier: GPL-3.0-or-later
// The one main of every window test program: a QApplication on the headless platform.
#include "platform/UserMessages.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // GUI tests run headless, test discovery at build time included.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    // No test may block on a modal box: messages are recorded unless a test installs its own.
    lorvane::RecordedMessages messages;
    lorvane::installUserMessages(&messages);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
