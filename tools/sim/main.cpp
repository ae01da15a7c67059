// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-sim: writes simulated meter log databases for the demo, the tests and the
// benchmarks.
#include "MeterSimulator.h"
#include "SimCommandLine.h"
#include "platform/StorageError.h"

#include <QCoreApplication>
#include <QTextStream>
#include <exception>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    using lorvane::sim::SimCommandLine;
    QStringList arguments = QCoreApplication::arguments();
    arguments.removeFirst();
    const SimCommandLine line(arguments);
    QTextStream err(stderr);
    if (!line.ok()) {
        err << "lorvane-sim: " << line.error() << "\n"
            << "Try 'lorvane-sim --help'.\n";
        return 2;
    }
    if (line.action() == SimCommandLine::Action::Help) {
        QTextStream(stdout) << SimCommandLine::usage();
        return 0;
    }
    try {
        if (line.action() == SimCommandLine::Action::Demo)
            lorvane::sim::MeterSimulator::writeDemo(line.options().out, line.options().overwrite,
                                                    line.options().verbose);
        else
            lorvane::sim::MeterSimulator(line.options()).run();
    } catch (const lorvane::StorageError& e) {
        err << "lorvane-sim: " << e.what() << "\n";
        return 1;
    } catch (const std::exception& e) {
        err << "lorvane-sim: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
