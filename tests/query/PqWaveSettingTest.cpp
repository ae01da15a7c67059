// SPDX-License-Identifier: GPL-3.0-or-later
// The PQ and waveform setting of a capture row: on a simulated meter against what its file
// stores, and on plain tables for a missing setting and an unknown hook-up; the hook-up
// pictures the rows name are delivered.
#include "WaveformSimMeters.h"
#include "platform/SqliteDatabase.h"
#include "query/engine/QueryContext.h"
#include "query/views/setup/SetupRecordViews.h"
#include "query/views/waveform/WaveformView.h"

#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::WaveformSimMeters;

namespace {

/// The first row at or after `from` whose label is `label`; -1 when there is none.
int rowOf(const GridTable& grid, const QString& label, int from = 0)
{
    for (int r = from; r < grid.rows.size(); ++r) {
        if (grid.rows.at(r).at(0) == label)
            return r;
    }
    return -1;
}

QStringList rowAt(const GridTable& grid, const QString& label, int from = 0)
{
    const int r = rowOf(grid, label, from);
    return r < 0 ? QStringList() : grid.rows.at(r);
}

QString units(double value)
{
    return QLocale().toString(value, 'f', 2);
}

QVariantMap fileRow(SqliteDatabase& file, const QString& table, qint64 index)
{
    SqlStatement select =
        file.prepare(QStringLiteral("SELECT * FROM [%1] WHERE [Index] = ?").arg(table));
    select.bindAll({index});
    QVariantMap row;
    if (select.next()) {
        for (int c = 0; c < select.columnCount(); ++c)
            row.insert(select.columnName(c), select.value(c));
    }
    return row;
}

} // namespace

TEST(PqWaveSetting, SimulatedMeterShowsSetPointsEnablesInputsFullScalesAndRatios)
{
    WaveformSimMeters sim;
    QueryContext context =
        sim.context({WaveformSimMeters::standard()}, "2024-03-04 00:00:00", "2024-03-05 23:59:59");
    const ViewResult result = WaveformView::run(context);
    const GridTable& waves = result.grids.first();
    ASSERT_FALSE(waves.rows.isEmpty());
    SqliteDatabase file(WaveformSimMeters::standard().dbPath, SqliteDatabase::Mode::ReadOnly);

    QSet<qint64> seen;
    QSet<QString> hookUps;
    for (const QVariantMap& keys : waves.rowKeys) {
        const qint64 index = keys.value(QStringLiteral("Index")).toLongLong();
        if (seen.contains(index))
            continue;
        seen << index;
        const QVariantMap stored = fileRow(file, QStringLiteral("PQWaveLogDataItem"), index);
        const QVariantMap scales = fileRow(file, QStringLiteral("FullScales"), index);
        ASSERT_FALSE(stored.isEmpty()) << index;
        const GridTable grid = SetupRecordViews::pqWaveSetting(
            context.scratch->database(), result.numbers,
            keys.value(QStringLiteral("DeviceIndex")).toLongLong(), index);
        ASSERT_EQ(grid.rows.size(), grid.rowPictures.size());
        ASSERT_EQ(grid.rows.size(), grid.rowKeys.size());
        for (const QStringList& row : grid.rows)
            ASSERT_EQ(row.size(), grid.columns.size());

        EXPECT_EQ(rowAt(grid, QStringLiteral("Device")).at(1), QStringLiteral("Main Switchboard"));
        const int hookUpRow = rowOf(grid, QStringLiteral("HookUp"));
        const int hookUp = stored.value(QStringLiteral("HookUp")).toInt();
        const QString word = grid.rows.at(hookUpRow).at(1);
        hookUps << word;
        EXPECT_EQ(word, SetupRecordViews::hookUpWord(hookUp));
        EXPECT_EQ(grid.rowPictures.at(hookUpRow), SetupRecordViews::hookUpPicture(hookUp));
        EXPECT_FALSE(grid.rowPictures.at(hookUpRow).isEmpty()) << hookUp;
        EXPECT_EQ(rowAt(grid, QStringLiteral("Sampling Rate")).at(1),
                  stored.value(QStringLiteral("SampleRate")).toString());
        const qint64 format = stored.value(QStringLiteral("RecordFormat")).toLongLong();
        EXPECT_EQ(rowAt(grid, QStringLiteral("Capture Item(s)")).at(1),
                  format == 0 ? QStringLiteral("V a, b, c")
                              : QStringLiteral("V a, b, c, I a, b, c"));

        EXPECT_EQ(rowAt(grid, QStringLiteral("Channel")),
                  (QStringList{QStringLiteral("Channel"), QStringLiteral("% of Full Scale"),
                               QStringLiteral("Set Value"), QStringLiteral("Enabled"),
                               QStringLiteral("Waveform Setpoint 1"),
                               QStringLiteral("Waveform Setpoint 2")}));
        // Phase and line voltages share their percentages but not their full scales.
        const double phase = scales.value(QStringLiteral("FullScale1")).toDouble();
        const double line = scales.value(QStringLiteral("FullScale4")).toDouble();
        const double amps = scales.value(QStringLiteral("FullScale5")).toDouble();
        ASSERT_GT(line, phase * 1.7);
        EXPECT_EQ(
            rowAt(grid, QStringLiteral("Van")),
            (QStringList{QStringLiteral("Van"), QStringLiteral("Below 90, Above 110"),
                         QStringLiteral("Below ") + units(0.9 * phase) +
                             QStringLiteral(", Above ") + units(1.1 * phase),
                         QStringLiteral("Yes"), QStringLiteral("Yes"), QStringLiteral("Yes")}));
        EXPECT_EQ(rowAt(grid, QStringLiteral("Vca")).at(2),
                  QStringLiteral("Below ") + units(0.9 * line) + QStringLiteral(", Above ") +
                      units(1.1 * line));
        EXPECT_EQ(rowAt(grid, QStringLiteral("Vca")).at(3), QString()); // no PQ on lines
        // Currents: one set point, "Above" in slot 2, captured unless the wiring has no Ib CT.
        EXPECT_EQ(rowAt(grid, QStringLiteral("Ia")),
                  (QStringList{QStringLiteral("Ia"), QStringLiteral("Above 120"),
                               QStringLiteral("Above ") + units(1.2 * amps), QString(), QString(),
                               QStringLiteral("Yes")}));
        EXPECT_EQ(rowAt(grid, QStringLiteral("Ib")).at(5),
                  hookUp == 2 ? QString() : QStringLiteral("Yes"));
        EXPECT_EQ(rowAt(grid, QStringLiteral("In")),
                  (QStringList{QStringLiteral("In"), QString(), QString(), QString(), QString(),
                               QString()}));

        // Inputs: all eight in captures, none in PQ; the unlabelled seventh gets its number.
        const int inputs = rowOf(grid, QStringLiteral("Inputs"));
        ASSERT_GE(inputs, 0);
        EXPECT_EQ(grid.rows.at(inputs).mid(1, 2),
                  (QStringList{QStringLiteral("Enables"), QStringLiteral("States")}));
        EXPECT_EQ(grid.rows.at(inputs + 1).mid(0, 4),
                  (QStringList{QStringLiteral("Breaker 52a"), QStringLiteral("Yes"),
                               QStringLiteral("Open / Closed"), QString()}));
        EXPECT_EQ(grid.rows.at(inputs + 7).at(0), QStringLiteral("Input 7"));
        EXPECT_EQ(grid.rows.at(inputs + 8).at(0), QStringLiteral("Aux Power"));

        const int fullScales = rowOf(grid, QStringLiteral("Full Scales"));
        ASSERT_GE(fullScales, 0);
        const QStringList scaleNames{"V l-n", "V aux", "PT aux",  "V p-p",
                                     "CT n",  "W p",   "W total", "Freq."};
        for (int i = 0; i < scaleNames.size(); ++i) {
            EXPECT_EQ(grid.rows.at(fullScales + 1 + i),
                      (QStringList{
                          scaleNames.at(i),
                          units(scales.value(QStringLiteral("FullScale%1").arg(i + 1)).toDouble()),
                          QString(), QString(), QString(), QString()}));
        }
        const int ratios = rowOf(grid, QStringLiteral("Transformer"));
        ASSERT_EQ(ratios, fullScales + 9);
        EXPECT_EQ(grid.rows.at(ratios).at(1), QStringLiteral("Ratios"));
        const QStringList ratioNames{"PT", "PT aux", "CT", "CT n"};
        for (int i = 0; i < ratioNames.size(); ++i) {
            EXPECT_EQ(
                grid.rows.at(ratios + 1 + i).mid(0, 2),
                (QStringList{ratioNames.at(i),
                             scales.value(QStringLiteral("PTCT_Ratio%1").arg(i + 1)).toString()}));
        }
        EXPECT_EQ(ratios + 5, grid.rows.size());
    }
    // The simulated settings cover the wye and both delta wirings.
    EXPECT_TRUE(hookUps.contains(QStringLiteral("Wye")));
    EXPECT_TRUE(hookUps.contains(QStringLiteral("Delta, 2 CTs")));
}

TEST(PqWaveSetting, MissingSettingShowsTheHeadsAndUnknownHookUpHasNoPicture)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    SqliteDatabase db(dir.filePath(QStringLiteral("scratch.db")), SqliteDatabase::Mode::Create);
    const QueryNumbers numbers{7, 2};
    db.executeScript(QStringLiteral(
        "CREATE TABLE LogDevices_7 (DeviceIndex INTEGER, DeviceTypeID INTEGER, DBPath TEXT, "
        "HardwareName TEXT);"
        "INSERT INTO LogDevices_7 VALUES (1, 3, 'a.db', 'Feeder 3');"
        "CREATE TABLE PQWaveLogDataItem_7_2 (DeviceIndex INTEGER, [Index] INTEGER, HookUp "
        "INTEGER, SampleRate INTEGER, CaptureNum INTEGER, RecordFormat INTEGER, PQEnables "
        "INTEGER, PQEnables_Input INTEGER, WaveEnables INTEGER, WaveEnables_Input INTEGER, "
        "C0_L1SAB TEXT, C0_L1 REAL, C0_L2SAB TEXT, C0_L2 REAL);"
        "INSERT INTO PQWaveLogDataItem_7_2 VALUES (1, 1, 9, 64, 3, 1, NULL, 4, 1, NULL, "
        "'Above', 105.5, NULL, NULL);"
        "CREATE TABLE FullScales_7_2 (DeviceIndex INTEGER, [Index] INTEGER, FullScale1 REAL);"
        "CREATE TABLE HSInputLabels_7_2 (DeviceIndex INTEGER, [Index] INTEGER, Input_1_Label "
        "TEXT);"));

    // Hook-up 9 is no wiring; without full scales the set point shows in percent only.
    const GridTable odd = SetupRecordViews::pqWaveSetting(db, numbers, 1, 1);
    const int hookUp = rowOf(odd, QStringLiteral("HookUp"));
    EXPECT_EQ(odd.rows.at(hookUp).at(1), QStringLiteral("N/A"));
    EXPECT_EQ(odd.rowPictures.at(hookUp), QString());
    EXPECT_EQ(rowAt(odd, QStringLiteral("Device")).at(1), QStringLiteral("Feeder 3"));
    EXPECT_EQ(rowAt(odd, QStringLiteral("Capture Item(s)")).at(1), QStringLiteral("I a, b, c"));
    EXPECT_EQ(rowAt(odd, QStringLiteral("Van")),
              (QStringList{QStringLiteral("Van"), QStringLiteral("Above 105.5"), QString(),
                           QString(), QStringLiteral("Yes"), QString()}));
    const int inputs = rowOf(odd, QStringLiteral("Inputs"));
    EXPECT_EQ(odd.rows.at(inputs + 3).mid(0, 4), (QStringList{QStringLiteral("Input 3"), QString(),
                                                              QString(), QStringLiteral("Yes")}));

    // Index 2 has no setting: every head is there, every value empty, no picture.
    const GridTable none = SetupRecordViews::pqWaveSetting(db, numbers, 1, 2);
    EXPECT_EQ(none.rows.size(), odd.rows.size());
    for (int r = 0; r < none.rows.size(); ++r) {
        EXPECT_EQ(none.rows.at(r).at(0), odd.rows.at(r).at(0));
        EXPECT_EQ(none.rowPictures.at(r), QString());
        const bool headRow = none.rows.at(r).at(0) == QStringLiteral("Channel") ||
                             none.rows.at(r).at(0) == QStringLiteral("Inputs") ||
                             none.rows.at(r).at(0) == QStringLiteral("Transformer");
        const bool device = none.rows.at(r).at(0) == QStringLiteral("Device");
        if (!headRow && !device) {
            for (int c = 1; c < none.rows.at(r).size(); ++c)
                EXPECT_EQ(none.rows.at(r).at(c), QString()) << r << ' ' << c;
        }
    }
}

TEST(PqWaveSetting, HookUpPicturesAreDeliveredAsDrawings)
{
    for (int hookUp = 0; hookUp <= 6; ++hookUp) {
        const QString name = SetupRecordViews::hookUpPicture(hookUp);
        if (hookUp >= 5) {
            EXPECT_TRUE(name.isEmpty()) << hookUp; // open delta and 45S have no drawing
            continue;
        }
        QFile picture(QStringLiteral(LORVANE_DATA_DIR "/sysimage/") + name +
                      QStringLiteral(".svg"));
        ASSERT_TRUE(picture.open(QIODevice::ReadOnly)) << picture.fileName().toStdString();
        QXmlStreamReader xml(&picture);
        ASSERT_TRUE(xml.readNextStartElement());
        EXPECT_EQ(xml.name(), QStringLiteral("svg"));
        int circles = 0;
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"circle")
                ++circles;
        }
        EXPECT_FALSE(xml.hasError()) << name.toStdString();
        // Every drawing shows at least the two CTs of the two-CT delta.
        EXPECT_GE(circles, 2) << name.toStdString();
    }
}
