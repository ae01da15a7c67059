// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the upgrade ladder on one meter file and prints a line per progress report of the 8.3
// step ("table {n}"), pausing after each, so that a test can kill it at a known point of the
// walk.
// Usage: upgrade_walker FILE PAUSE_MS
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "store/MeterMessages.h"
#include "store/SchemaUpgrade.h"

#include <QCoreApplication>
#include <QThread>
#include <cstdio>

namespace {

class Walker : public lorvane::LoadProgress
{
public:
    explicit Walker(unsigned long pause) : m_pause(pause) {}
    void status(const QString& text) override
    {
        m_inHourTables = text == lorvane::MeterMessages::updatingTo83();
    }

protected:
    void showFraction(std::optional<double>) override
    {
        if (!m_inHourTables)
            return;
        std::printf("table %d\n", ++m_reports);
        std::fflush(stdout);
        QThread::msleep(m_pause);
    }

private:
    unsigned long m_pause;
    bool m_inHourTables = false;
    int m_reports = 0;
};

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 1;
    Walker walker(arguments.at(2).toULong());
    try {
        lorvane::SchemaUpgrade::upgrade(arguments.at(1), &walker);
    } catch (const lorvane::Fault& fault) {
        std::fprintf(stderr, "%s\n", qPrintable(fault.message()));
        return 2;
    }
    return 0;
}
