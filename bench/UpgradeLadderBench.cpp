// SPDX-License-Identifier: GPL-3.0-or-later
// The upgrade ladder from 7.5 to 8.6 on a benchmark-size file (the 8.3 walk over every
// snapshot hour table is the cost) against the same changes run in one plain transaction on
// one connection, each on a fresh copy of the same file. One round takes minutes on the
// benchmark meter, so one round is the default.
// Usage: UpgradeLadderBench FILE_AT_7_5 [ROUNDS]
#include "platform/LoadProgress.h"
#include "platform/SqliteDatabase.h"
#include "store/SchemaUpgrade.h"
#include "store/UpgradeLadder.h"

#include <QDateTime>
#include <QFile>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

using namespace lorvane;

namespace {

double millisecondsOf(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

bool freshCopy(const QString& source, const QString& copy)
{
    QFile::remove(copy);
    return QFile::copy(source, copy) &&
           QFile::setPermissions(copy, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

/// Every step's changes and closing statement in one transaction, with no per-step opening
/// or version check.
void oneTransaction(const QString& path)
{
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadWrite);
    db.beginTransaction();
    for (const UpgradeStep& step : UpgradeLadder::steps()) {
        SilentProgress silent;
        step.changes(db, silent);
        db.execute(step.closingStatement(QDateTime::currentDateTime()));
    }
    db.commit();
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: UpgradeLadderBench FILE_AT_7_5 [ROUNDS]\n");
        return 1;
    }
    const QString source = QString::fromLocal8Bit(argv[1]);
    const int rounds = argc > 2 ? std::max(1, std::atoi(argv[2])) : 1;
    const QString ladderCopy = source + QStringLiteral(".ladder");
    const QString plainCopy = source + QStringLiteral(".plain");
    std::vector<double> ladder;
    std::vector<double> plain;
    for (int i = 0; i < rounds; ++i) {
        if (!freshCopy(source, ladderCopy) || !freshCopy(source, plainCopy)) {
            std::fprintf(stderr, "cannot copy %s\n", argv[1]);
            return 1;
        }
        ladder.push_back(millisecondsOf([&] {
            SilentProgress silent;
            const UpgradeResult result = SchemaUpgrade::upgrade(ladderCopy, &silent);
            if (result.steps.size() != 10)
                std::fprintf(stderr, "the ladder ran %lld steps\n",
                             static_cast<long long>(result.steps.size()));
        }));
        plain.push_back(millisecondsOf([&] { oneTransaction(plainCopy); }));
    }
    QFile::remove(ladderCopy);
    QFile::remove(plainCopy);
    const double ladderMs = median(ladder);
    const double plainMs = median(plain);
    std::printf("%-40s lorvane %9.3f ms   baseline %9.3f ms   ratio %6.2f\n",
                "upgrade ladder 7.5 -> 8.6", ladderMs, plainMs,
                plainMs > 0 ? ladderMs / plainMs : 0.0);
    std::printf("(median of %d rounds)\n", rounds);
    return 0;
}
