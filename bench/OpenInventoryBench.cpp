// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a meter database and taking its inventory (device record, log inventory, log tree)
// against the same statements run through the raw SQLite interface on the same file.
#include "BenchClock.h"
#include "query/selection/LogTree.h"
#include "query/selection/MeterInventory.h"
#include "store/MeterDatabase.h"

#include <QFileInfo>
#include <cstdio>
#include <sqlite3.h>

using namespace lorvane;

namespace {

const char* const rawStatements[] = {
    "SELECT count(*) FROM sqlite_master",
    "SELECT [Version] FROM [ID_Table] LIMIT 1",
    "SELECT [Note] FROM [ID_Table] LIMIT 1",
    "SELECT * FROM [DeviceInformation]",
    "select 3 from allhistoricallogs union select 4 from allenergydemandlogs union select 5 "
    "from alllimitslogs union select 6 from allinputlogs union select 7 from allrelaylogs union "
    "select 9 from allwaveformlogs union select 10 from allpqlogs union select 11 from "
    "allsystemeventlogs",
    "select logoptionname from alllogs where logoptionname is not null and logoptionname like "
    "'%Flicker%'",
    "select dataid from datapoints where cast(dataid as integer) / 27400 > 0",
    "select dataid from datapoints where dataid = 26005",
    "select count(*) from (select dataid from datapoints where dataid = 30001 or dataid = 30002 "
    "or dataid = 30003 or dataid = 30076 or dataid = 30077 or dataid = 30078 or dataid = 30079 "
    "or dataid = 30080 or dataid = 30082)",
    "select 1 from allpqtestlogs",
    "select KGate from DeviceInformation",
    "select firmwareinfo3 from AllLogs",
};

const char* const masterTables[] = {
    "AllHistoricalLogs", "AllEnergyDemandLogs", "AllLimitsLogs",
    "AllInputLogs",      "AllRelayLogs",        "AllFlickerLogs",
    "AllWaveformLogs",   "AllPQLogs",           "AllSystemEventLogs"};

void stepAll(sqlite3* db, const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK)
        return;
    while (sqlite3_step(statement) == SQLITE_ROW) {
    }
    sqlite3_finalize(statement);
}

void raw(const QByteArray& path)
{
    sqlite3* db = nullptr;
    sqlite3_open_v2(path.constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    for (const char* sql : rawStatements)
        stepAll(db, sql);
    for (const char* table : masterTables) {
        const QByteArray sql =
            QByteArray("Select [StartDate/Time], [EndDate/Time], [Records] From [") + table +
            "] Where [Records] > 0 Order By [StartDate/Time] ASC, [EndDate/Time] ASC";
        stepAll(db, sql.constData());
    }
    sqlite3_close(db);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2 || !QFileInfo::exists(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "usage: OpenInventoryBench METER.DB\n");
        return 1;
    }
    const QString path = QString::fromLocal8Bit(argv[1]);
    std::printf("file: %s (%.1f MB)\n", argv[1], static_cast<double>(QFileInfo(path).size()) / 1e6);
    qint64 records = 0;
    const double ratio = bench::compare(
        "open + inventory + log tree",
        [&] {
            MeterDatabase meter(path);
            meter.version();
            meter.note();
            const DeviceRecord record = MeterInventory::read(meter, 0);
            records = 0;
            for (const LogTreeEntry& entry : LogTree::read(meter))
                records += entry.records;
            (void)record;
        },
        [&] { raw(path.toLocal8Bit()); }, 21);
    std::printf("records listed in the tree: %lld\n", static_cast<long long>(records));
    return ratio > 0 ? 0 : 1;
}
