// SPDX-License-Identifier: GPL-3.0-or-later
// Test helper: makes this process's scratch working file from a template and holds it until
// the process is killed, standing in for a running copy of the viewer.
// Usage: scratch_holder <template> <scratch folder>. Prints the working file's path on one
// line once it is open; on failure prints the error on stderr and exits with 1.
#include "platform/StorageError.h"
#include "store/TempQueryDatabase.h"

#include <QCoreApplication>
#include <chrono>
#include <cstdio>
#include <thread>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: scratch_holder <template> <scratch folder>\n");
        return 2;
    }
    try {
        auto scratch = lorvane::TempQueryDatabase::create(arguments.at(1), arguments.at(2),
                                                          QCoreApplication::applicationPid());
        std::printf("%s\n", qPrintable(scratch->path()));
        std::fflush(stdout);
        for (;;)
            std::this_thread::sleep_for(std::chrono::hours(1));
    } catch (const lorvane::StorageError& error) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(error.path()), error.what());
        return 1;
    }
}
