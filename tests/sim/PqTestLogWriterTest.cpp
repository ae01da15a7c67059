// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqTestLogWriter.h"

#include "PowerSystemModel.h"
#include "SimMeter.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "store/MeterSchema.h"

#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

using namespace lorvane;
using namespace lorvane::sim;

namespace {

constexpr qint64 day = 86400;
constexpr qint64 monday = 1709510400; // 2024-03-04 00:00:00

/// A file holding only the test table, and a meter writing into it over `days` days.
class TestFile
{
public:
    TestFile(qint64 days, quint64 seed = 1, double disturbancesPerDay = 6.0,
             double nominalVoltage = 120.0, double frequency = 60.0)
    {
        m_db = std::make_unique<SqliteDatabase>(m_dir.filePath(QStringLiteral("meter.DB")),
                                                SqliteDatabase::Mode::Create);
        m_db->executeScript(m_meter.schema.table(QStringLiteral("AllPQTestLogs")).createSql());
        PowerSystemModel::Config config;
        config.seed = seed;
        config.startSecond = monday;
        config.endSecond = monday + days * day;
        config.nominalVoltage = nominalVoltage;
        config.frequency = frequency;
        config.disturbancesPerDay = disturbancesPerDay;
        m_model = std::make_unique<PowerSystemModel>(config);
        m_meter.db = m_db.get();
        m_meter.model = m_model.get();
        m_meter.seed = seed;
        m_meter.startSecond = config.startSecond;
        m_meter.endSecond = config.endSecond;
    }

    SimMeter& meter() { return m_meter; }
    const PowerSystemModel& model() const { return *m_model; }
    double number(const QString& sql) { return m_db->scalar(sql).toDouble(); }
    QString text(const QString& sql) { return m_db->scalar(sql).toString(); }
    void drop() { m_db->execute(QStringLiteral("DROP TABLE AllPQTestLogs")); }
    /// Sum of `bin_{first}` to `bin_{first + count - 1}` of one row.
    double bins(int id, int first, int count)
    {
        QStringList terms;
        for (int i = first; i < first + count; ++i)
            terms << QStringLiteral("bin_%1").arg(i);
        return number(QStringLiteral("SELECT %1 FROM AllPQTestLogs WHERE ID_PQTest = %2")
                          .arg(terms.join(QLatin1Char('+')))
                          .arg(id));
    }

private:
    QTemporaryDir m_dir;
    std::unique_ptr<SqliteDatabase> m_db;
    std::unique_ptr<PowerSystemModel> m_model;
    SimMeter m_meter;
};

/// Every group of bins adds up to the count of values it classifies, and the event tables
/// by depth and by duration count the same events.
void expectConsistentRow(TestFile& file, int id)
{
    SCOPED_TRACE(id);
    const double n1 = file.bins(id, 2, 1), n2 = file.bins(id, 3, 1), n3 = file.bins(id, 4, 1);
    EXPECT_EQ(file.bins(id, 5, 10), n1);
    for (int phase = 0; phase < 3; ++phase) {
        EXPECT_EQ(file.bins(id, 15 + 5 * phase, 5), n2);
        EXPECT_EQ(file.bins(id, 30 + 6 * phase, 6), n2);
        EXPECT_EQ(file.bins(id, 48 + 2 * phase, 2), n3);
    }
    EXPECT_EQ(file.bins(id, 54, 3), n2);
    const double sags = file.bins(id, 132, 1) + file.bins(id, 134, 2);
    EXPECT_EQ(file.bins(id, 136, 6), sags);
    EXPECT_EQ(file.bins(id, 142, 6), sags);
    EXPECT_EQ(file.bins(id, 159, 6), sags);
    EXPECT_EQ(file.bins(id, 159, 3), file.bins(id, 132, 1));
    const double swells = file.bins(id, 133, 1);
    EXPECT_EQ(file.bins(id, 148, 5), swells);
    EXPECT_EQ(file.bins(id, 153, 6), swells);
    EXPECT_EQ(file.bins(id, 165, 3), swells);
}

/// The first seed from 1 whose one-disturbance day holds a disturbance of that kind.
quint64 seedWithOnly(Disturbance::Kind kind)
{
    for (quint64 seed = 1; seed < 200; ++seed) {
        PowerSystemModel::Config config;
        config.seed = seed;
        config.startSecond = monday;
        config.endSecond = monday + day;
        config.disturbancesPerDay = 0.01;
        if (PowerSystemModel(config).disturbances().first().kind == kind)
            return seed;
    }
    ADD_FAILURE() << "no seed found";
    return 1;
}

} // namespace

TEST(PqTestLogWriter, ShortPeriodGivesOneRowCountingWhatTheMeterMeasured)
{
    TestFile file(2);
    PqTestLogWriter::write(file.meter());

    EXPECT_EQ(file.number(QStringLiteral("SELECT COUNT(*) FROM AllPQTestLogs")), 1);
    EXPECT_EQ(file.number(QStringLiteral("SELECT ID_PQTest FROM AllPQTestLogs")), 1);
    EXPECT_EQ(file.text(QStringLiteral("SELECT StartTime FROM AllPQTestLogs")),
              QStringLiteral("2024-03-04 00:00:00"));
    EXPECT_EQ(file.text(QStringLiteral("SELECT EndTime FROM AllPQTestLogs")),
              QStringLiteral("2024-03-06 00:00:00"));
    EXPECT_EQ(file.text(QStringLiteral(
                  "SELECT typeof(StartTime) || typeof(EndTime) || typeof(Freq) || "
                  "typeof(S_FVF) || typeof(P_FVF) || typeof(bin_1) || typeof(bin_170) || "
                  "typeof(NominalVoltage) FROM AllPQTestLogs")),
              QStringLiteral("texttextrealintegerrealrealrealreal"));
    EXPECT_DOUBLE_EQ(file.number(QStringLiteral("SELECT Freq FROM AllPQTestLogs")), 60.0);
    EXPECT_DOUBLE_EQ(file.number(QStringLiteral("SELECT NominalVoltage FROM AllPQTestLogs")),
                     120.0);

    // Two days less the outage of day 2 (10:00 to 13:00) and the test mode of the last day
    // (14:00 to 14:30), during which the meter measures nothing.
    EXPECT_EQ(file.bins(1, 1, 1), 2 * day);
    EXPECT_EQ(file.bins(1, 2, 1), 2 * 8640 - 1080 - 180);
    EXPECT_EQ(file.bins(1, 3, 1), 2 * 144 - 18 - 3);
    // 2-hour windows: 10-12 and 12-14 of day 2 touch the outage, 14-16 the test mode.
    EXPECT_EQ(file.bins(1, 4, 1), 24 - 3);
    expectConsistentRow(file, 1);
    // Events are those of the PQ log: every dip, interruption, swell and transient of the
    // period, the ones during the outage and the test mode included.
    const auto& events = file.model().disturbances();
    const auto count = [&events](auto test) {
        return static_cast<double>(std::count_if(events.cbegin(), events.cend(), test));
    };
    using Kind = Disturbance::Kind;
    EXPECT_EQ(file.bins(1, 132, 1),
              count([](const auto& d) { return d.kind == Kind::Sag && d.residualPercent >= 1; }));
    EXPECT_EQ(file.bins(1, 134, 2),
              count([](const auto& d) { return d.kind == Kind::Sag && d.residualPercent < 1; }));
    EXPECT_EQ(file.bins(1, 133, 1), count([](const auto& d) { return d.kind == Kind::Swell; }));
    EXPECT_EQ(file.bins(1, 168, 3), count([](const auto& d) { return d.kind == Kind::Transient; }));
    EXPECT_EQ(file.bins(1, 135, 1), 0) << "no interruption of the model lasts 3 minutes";

    // A 60 Hz supply held within 1 %: every frequency value in the two bins around nominal.
    EXPECT_EQ(file.bins(1, 9, 2), file.bins(1, 2, 1));
    // 10-minute voltages within 10 % of nominal, so LSV passes on every phase.
    for (int phase = 0; phase < 3; ++phase)
        EXPECT_EQ(file.bins(1, 17 + 5 * phase, 2), file.bins(1, 3, 1));
    EXPECT_EQ(file.number(QStringLiteral(
                  "SELECT S_Freq || S_LSV || S_Flicker || S_SVU || S_Harmonic || S_THD "
                  "FROM AllPQTestLogs")),
              111111);
}

TEST(PqTestLogWriter, WholeWeeksGetOneRowEachAndTheDipsFailFastVoltage)
{
    TestFile file(16, 1, 6.0, 230.0, 50.0);
    PqTestLogWriter::write(file.meter());

    EXPECT_EQ(file.number(QStringLiteral("SELECT COUNT(*) FROM AllPQTestLogs")), 2)
        << "the two days after the second week make no row";
    EXPECT_EQ(file.text(QStringLiteral("SELECT group_concat(StartTime || '/' || EndTime, ';') FROM "
                                       "(SELECT * FROM AllPQTestLogs ORDER BY ID_PQTest)")),
              QStringLiteral("2024-03-04 00:00:00/2024-03-11 00:00:00;"
                             "2024-03-11 00:00:00/2024-03-18 00:00:00"));
    // The second week has neither outage nor test mode: every value of the week counts.
    EXPECT_EQ(file.bins(2, 2, 1), 60480);
    EXPECT_EQ(file.bins(2, 3, 1), 1008);
    EXPECT_EQ(file.bins(2, 4, 1), 84);
    EXPECT_EQ(file.bins(1, 3, 1), 1008 - 18);
    for (int id : {1, 2})
        expectConsistentRow(file, id);
    EXPECT_DOUBLE_EQ(file.number(QStringLiteral("SELECT Freq FROM AllPQTestLogs")), 50.0);

    // Six disturbances a day: every week holds dips below 90 % or swells above 110 %, which
    // land in the outer fast voltage bins; with no allowance set the criterion fails.
    EXPECT_EQ(file.number(QStringLiteral("SELECT COUNT(*) FROM AllPQTestLogs WHERE S_FVF = 0 "
                                         "AND P_FVF = 0 AND bin_30 + bin_35 + bin_36 + bin_41 "
                                         "+ bin_42 + bin_47 > 0")),
              2);
    EXPECT_EQ(file.number(QStringLiteral("SELECT COUNT(*) FROM AllPQTestLogs WHERE S_Freq = 1 "
                                         "AND S_LSV = 1 AND S_Flicker = 1 AND S_SVU = 1 AND "
                                         "S_Harmonic = 1 AND S_THD = 1")),
              2);

    // A second run appends: the numbering goes on.
    PqTestLogWriter::write(file.meter());
    EXPECT_EQ(file.number(QStringLiteral("SELECT MAX(ID_PQTest) FROM AllPQTestLogs")), 4);
}

TEST(PqTestLogWriter, FastVoltagePassesOnlyWithoutDipsAndSwells)
{
    // One disturbance in the day: a transient leaves the RMS values alone, a dip does not.
    TestFile quiet(1, seedWithOnly(Disturbance::Kind::Transient), 0.01);
    PqTestLogWriter::write(quiet.meter());
    EXPECT_EQ(quiet.number(QStringLiteral("SELECT S_FVF FROM AllPQTestLogs")), 1);
    EXPECT_EQ(quiet.bins(1, 168, 3), 1);
    expectConsistentRow(quiet, 1);

    TestFile dipped(1, seedWithOnly(Disturbance::Kind::Sag), 0.01);
    PqTestLogWriter::write(dipped.meter());
    EXPECT_EQ(dipped.number(QStringLiteral("SELECT S_FVF FROM AllPQTestLogs")), 0);
    const Disturbance& sag = dipped.model().disturbances().first();
    const int deepest = 30 + 6 * sag.channel;
    EXPECT_EQ(dipped.bins(1, deepest, 1), 1) << "the dip's interval lies below 90 %";
    EXPECT_EQ(dipped.bins(1, 136, 6), 1);
    EXPECT_EQ(dipped.bins(1, (sag.residualPercent < 1.0 ? 162 : 159) + sag.channel, 1), 1);
    expectConsistentRow(dipped, 1);
}

TEST(PqTestLogWriter, BadInputIsRefusedAndAnEmptyPeriodWritesNothing)
{
    TestFile file(1);
    SimMeter broken = file.meter();
    broken.model = nullptr;
    EXPECT_THROW(PqTestLogWriter::write(broken), std::invalid_argument);
    broken = file.meter();
    broken.db = nullptr;
    EXPECT_THROW(PqTestLogWriter::write(broken), std::invalid_argument);

    // A file without the table: the engine's error, with the file's path, reaches the caller.
    TestFile tableless(1);
    tableless.drop();
    EXPECT_THROW(PqTestLogWriter::write(tableless.meter()), StorageError);

    SimMeter empty = file.meter();
    empty.endSecond = empty.startSecond;
    PqTestLogWriter::write(empty);
    EXPECT_EQ(file.number(QStringLiteral("SELECT COUNT(*) FROM AllPQTestLogs")), 0);
}
