// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the upgrade ladder on one meter file and prints a line per hour table of the 8.3 step,
// pausing after each, so that a test can kill it at a known point of the walk.
// Usage: upgrade_walker FILE PAUSE_MS
#include "platform/Fault.h"
#include "store/SchemaUpgrade.h"

#include <QCoreApplication>
#include <QThread>
#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 1;
    const unsigned long pause = arguments.at(2).toULong();
    try {
        lorvane::SchemaUpgrade::upgrade(arguments.at(1), [&](const QString&, int done, int total) {
            std::printf("table %d of %d\n", done, total);
            std::fflush(stdout);
            QThread::msleep(pause);
            return true;
        });
    } catch (const lorvane::Fault& fault) {
        std::fprintf(stderr, "%s\n", qPrintable(fault.message()));
        return 2;
    }
    return 0;
}
