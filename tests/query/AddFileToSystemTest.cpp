// SPDX-License-Identifier: GPL-3.0-or-later
// Opening meters into the meter table: the ladder's version rules, the scratch comparison, the
// Device Master Log redirection, refusals that keep the earlier entry, and the combo boxes.
#include "query/selection/AddFileToSystem.h"

#include "SelectionSimMeters.h"
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "platform/SqliteDatabase.h"
#include "query/selection/DataPointSelection.h"
#include "query/selection/DefaultSelection.h"
#include "query/selection/MeterTable.h"
#include "query/selection/TopQueryBuffer.h"
#include "store/MeterDatabase.h"
#include "store/MeterMessages.h"
#include "support/MeterFileBuilder.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::MeterFileBuilder;
using lorvane::test::SelectionSimMeters;

namespace {

struct Window
{
    SelectionSimMeters sim;
    MeterTable table;
    TopQueryBuffer buffer;
    DataPointSelection points;
    AddFileToSystem add{table, buffer, points, sim.scratchPath()};

    AddFileToSystem::Outcome open(const QString& path, int meterIndex = 0)
    {
        return add.run(path, QFileInfo(path).fileName(), meterIndex);
    }
    QString plainMeter(double version, const QString& name, bool withDevice = true)
    {
        const QString path = sim.dir().filePath(name);
        MeterFileBuilder file(path, version);
        if (withDevice)
            file.device(3, QStringLiteral("Halyx 3"), QStringLiteral("Plain ") + name)
                .dataPoints({20617});
        file.close();
        return path;
    }
};

double versionOf(const QString& path)
{
    MeterDatabase meter(path);
    return meter.version();
}

} // namespace

TEST(AddFileToSystem, LadderTakes77And79ButEndsTheProgramOn78)
{
    Window w;
    for (double version : {7.7, 7.9}) {
        const QString path = w.plainMeter(version, QStringLiteral("v%1.DB").arg(version));
        const auto outcome = w.open(path);
        EXPECT_TRUE(outcome.added) << version << outcome.messages.join('|').toStdString();
        EXPECT_DOUBLE_EQ(versionOf(path), 8.6) << "the ladder brought the file up";
        EXPECT_EQ(w.table.device(0).filePath, path);
    }

    const QString before = w.table.device(0).filePath;
    const QString v78 = w.plainMeter(7.8, QStringLiteral("v78.DB"));
    try {
        w.open(v78);
        FAIL() << "7.8 must end the program";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), Fault::Kind::Version);
        EXPECT_TRUE(fault.message().startsWith(QStringLiteral("Invalid database version 7.8")));
    }
    EXPECT_EQ(w.table.device(0).filePath, before);

    // Below 7.5 the load check refuses first, without ending the program.
    const auto old = w.open(w.plainMeter(7.4, QStringLiteral("v74.DB")));
    EXPECT_FALSE(old.added);
    ASSERT_FALSE(old.messages.isEmpty());
    EXPECT_TRUE(old.messages.last().contains(QStringLiteral("is older than version 7.6.")));
    EXPECT_EQ(w.table.device(0).filePath, before);
}

TEST(AddFileToSystem, ScratchDatabaseIsUpdatedFrom86AndRefusesBelow)
{
    Window w;
    const double scratchBefore = w.sim.scratch().version();
    ASSERT_GE(scratchBefore, 8.6 - 1e-9);
    const auto added = w.open(w.sim.meter(QStringLiteral("standard")));
    ASSERT_TRUE(added.added) << added.messages.join('|').toStdString();
    EXPECT_NEAR(w.sim.scratch().version(), 8.7, 1e-9) << "a 9.0 meter updates the scratch copy";

    Window old;
    old.open(old.sim.meter(QStringLiteral("talmo")));
    const DeviceRecord talmo = old.table.device(0);
    old.sim.scratch().database().execute(QStringLiteral("UPDATE ID_Table SET Version = 8.5"));
    old.buffer.setRow(1, {7, 1, {}, {}, 0});
    const auto refused = old.open(old.sim.meter(QStringLiteral("standard")));
    EXPECT_FALSE(refused.added);
    ASSERT_EQ(refused.messages.size(), 1);
    const QStringList lines = refused.messages.first().split('\n');
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines.at(3).left(15), QStringLiteral("System DB,   v8"));
    EXPECT_TRUE(lines.at(4).startsWith(QStringLiteral("Selected DB, v9.0, ")));
    EXPECT_EQ(old.table.device(0).hardwareName, talmo.hardwareName) << "earlier entry kept";
    EXPECT_TRUE(old.buffer.holds(1)) << "a refusal does not clear the buffer";
}

TEST(AddFileToSystem, DeviceMasterLogHidesMeter2AndAPlainFileShowsItAgain)
{
    Window w;
    const QString dml = w.sim.splitMeter();
    const auto added = w.open(dml);
    ASSERT_TRUE(added.added) << added.messages.join('|').toStdString();
    EXPECT_FALSE(w.table.meter2Selectable());
    EXPECT_EQ(w.table.deviceMasterLog(), dml);
    EXPECT_TRUE(
        w.table.device(0).filePath.endsWith(QStringLiteral("/logs/SYSTEM_EVENT/SYSTEM_EVENT.db")));
    EXPECT_EQ(w.table.device(0).fileName, QStringLiteral("SYSTEM_EVENT.db"));
    EXPECT_EQ(w.table.device(0).deviceTypeId, 5);
    EXPECT_EQ(w.table.lastFolder(), QFileInfo(dml).absolutePath());

    ASSERT_TRUE(w.open(w.sim.meter(QStringLiteral("standard"))).added);
    EXPECT_TRUE(w.table.meter2Selectable());
    EXPECT_TRUE(w.table.deviceMasterLog().isEmpty());
}

TEST(AddFileToSystem, RefusalsKeepTheEarlierEntryAndSayWhy)
{
    Window w;
    w.points.loadDefaults({}, true);
    w.buffer.setRow(3, {5, 1, {}, {}, 0});
    ASSERT_TRUE(w.open(w.sim.meter(QStringLiteral("standard"))).added);
    EXPECT_FALSE(w.points.valid()) << "a new meter unselects the data points";
    EXPECT_FALSE(w.buffer.holds(3)) << "a new meter clears the top query buffer";
    const DeviceRecord standard = w.table.device(0);

    const auto missing = w.open(w.sim.dir().filePath(QStringLiteral("gone.DB")));
    EXPECT_FALSE(missing.added);
    EXPECT_FALSE(missing.messages.isEmpty());

    const auto damaged = w.open(w.plainMeter(8.6, QStringLiteral("nodevice.DB"), false));
    EXPECT_FALSE(damaged.added);
    ASSERT_FALSE(damaged.messages.isEmpty());
    EXPECT_TRUE(damaged.messages.last().startsWith(
        QStringLiteral("This database is damaged. Table:  DeviceInformation")));

    const QString text = w.sim.dir().filePath(QStringLiteral("notes.DB"));
    QFile f(text);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("not a database at all, just some words");
    f.close();
    EXPECT_FALSE(w.open(text).added);

    EXPECT_EQ(w.table.device(0).filePath, standard.filePath);
    EXPECT_EQ(w.table.comboItems(0),
              (QStringList{QStringLiteral("No Meter"), standard.hardwareName}));
}

TEST(AddFileToSystem, ReadOnlyFileIsOpenedAtTheNewestLayoutAndRefusedBelowIt)
{
    Window w;
    const QString current = w.sim.meter(QStringLiteral("talmo"));
    // An old read-only file bypassed the ladder and failed later with raw SQL text ("no
    // such column: firmwareinfo3"): it cannot be upgraded, so it cannot be read.
    const QString old75 = w.plainMeter(7.5, QStringLiteral("old75.DB"));
    const QString old82 = w.plainMeter(8.2, QStringLiteral("old82.DB"));
    for (const QString& path : {current, old75, old82})
        ASSERT_TRUE(QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::ReadGroup));

    const auto opened = w.open(current);
    EXPECT_TRUE(opened.added);
    EXPECT_EQ(opened.messages,
              QStringList{QStringLiteral("talmo.DB file attribute is read-only.")});

    const struct
    {
        QString path;
        const char* version;
    } refused[] = {{old75, "7.5"}, {old82, "8.2"}};
    for (const auto& file : refused) {
        const QString name = QFileInfo(file.path).fileName();
        const auto outcome = w.open(file.path, 1);
        EXPECT_FALSE(outcome.added) << file.version;
        EXPECT_EQ(outcome.messages,
                  (QStringList{name + QStringLiteral(" file attribute is read-only."),
                               name + QStringLiteral(" is at version ") + file.version +
                                   QStringLiteral(" and must be upgraded before it can be read; "
                                                  "clear its read-only attribute to let the "
                                                  "program upgrade it.")}));
        EXPECT_DOUBLE_EQ(versionOf(file.path), QString(file.version).toDouble());
        EXPECT_TRUE(w.table.device(1).filePath.isEmpty());
    }
}

TEST(AddFileToSystem, TheLadderShowsItsProgressAndItsCancelRefusesTheFile)
{
    // The ladder ran with no progress: a large 8.2 file froze the window without a word.
    class Watcher : public LoadProgress
    {
    public:
        void status(const QString& text) override { texts << text; }
        QStringList texts;
        QList<double> shares;
        bool cancelAtHourTables = false;

    protected:
        void showFraction(std::optional<double> fraction) override
        {
            shares << fraction.value_or(-1);
        }
        void serve() override
        {
            if (cancelAtHourTables && !texts.isEmpty())
                requestCancel();
        }
    };
    Window w;
    for (const bool cancel : {false, true}) {
        const QString path = w.plainMeter(8.2, QStringLiteral("v82_%1.DB").arg(cancel));
        Watcher watcher;
        watcher.cancelAtHourTables = cancel;
        const auto outcome = w.add.run(path, QFileInfo(path).fileName(), 0, &watcher);
        EXPECT_EQ(watcher.texts, QStringList{MeterMessages::updatingTo83()});
        ASSERT_FALSE(watcher.shares.isEmpty());
        EXPECT_DOUBLE_EQ(watcher.shares.first(), 0);
        EXPECT_EQ(outcome.added, !cancel) << outcome.messages.join('|').toStdString();
        EXPECT_DOUBLE_EQ(versionOf(path), cancel ? 8.2 : 8.6);
        if (cancel) {
            EXPECT_EQ(outcome.messages.last(),
                      QStringLiteral("The upgrade of v82_1.DB was cancelled; the file keeps its "
                                     "version."));
        }
    }
}

TEST(MeterTable, TwoMetersCombosAndTheSelectedDeviceType)
{
    SelectionSimMeters sim;
    auto opened = MeterTable::open(
        {sim.meter(QStringLiteral("standard")), sim.meter(QStringLiteral("talmo"))},
        sim.scratchPath());
    MeterTable& table = opened.table;
    EXPECT_TRUE(opened.messages.isEmpty()) << opened.messages.join('|').toStdString();
    EXPECT_EQ(table.usedCount(), 2);
    EXPECT_EQ(table.selectedDeviceType(), QStringLiteral("None"));
    const QList<LogFileEntry> files = table.usedFiles();
    ASSERT_EQ(files.size(), 2);
    EXPECT_EQ(files.at(1).deviceIndex, 1);
    EXPECT_EQ(files.at(1).deviceTypeId, 0);

    EXPECT_TRUE(table.pickComboItem(1, 0));
    EXPECT_EQ(table.usedCount(), 1);
    EXPECT_EQ(table.selectedDeviceType(), QStringLiteral("Halyx 3"));
    EXPECT_FALSE(table.pickComboItem(1, 2)) << "the box has no third item";
    EXPECT_TRUE(table.pickComboItem(0, 0));
    EXPECT_FALSE(table.anyMeterSelected());
    EXPECT_TRUE(table.selectedDeviceType().isEmpty());

    EXPECT_EQ(MeterTable(1).maxDevices(), 1);
    EXPECT_EQ(MeterTable(7).maxDevices(), 2);
    EXPECT_EQ(MeterTable::open(
                  {sim.meter(QStringLiteral("talmo")), sim.meter(QStringLiteral("standard"))},
                  sim.scratchPath(), 1)
                  .table.usedCount(),
              1);
}
