// SPDX-License-Identifier: GPL-3.0-or-later
#include "CapturePlan.h"
#include "CaptureSettingsWriter.h"
#include "PowerSystemModel.h"
#include "PqLogWriter.h"
#include "SimMeter.h"
#include "WaveformLogWriter.h"
#include "platform/SqlStatement.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "store/MeterSchema.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>

using namespace lorvane;
using namespace lorvane::sim;

namespace {

constexpr qint64 monday = 1709510400; // 2024-03-04 00:00:00
constexpr double pi = 3.14159265358979323846;

/// A complete meter file (every file-wide table) in a temporary folder and the meter that
/// writes into it.
class CaptureFile
{
public:
    CaptureFile(int deviceTypeId, double schemaVersion, qint64 days = 3, quint64 seed = 7)
        : m_meterSchema(schemaVersion)
    {
        m_db = std::make_unique<SqliteDatabase>(m_dir.filePath(QStringLiteral("meter.DB")),
                                                SqliteDatabase::Mode::Create);
        // One transaction, as the simulator writes a file: no sync per row.
        m_db->beginTransaction();
        for (const TableLayout& table : m_meterSchema.fileTables())
            m_db->executeScript(table.createSql());
        PowerSystemModel::Config config;
        config.seed = seed;
        config.startSecond = monday;
        config.endSecond = monday + days * 86400;
        m_model = std::make_unique<PowerSystemModel>(config);
        m_meter.db = m_db.get();
        m_meter.schema = m_meterSchema;
        m_meter.model = m_model.get();
        m_meter.seed = seed;
        m_meter.deviceTypeId = deviceTypeId;
        m_meter.hardwareName = QStringLiteral("Test meter");
        m_meter.folder = m_dir.path();
        m_meter.startSecond = config.startSecond;
        m_meter.endSecond = config.endSecond;
    }

    const SimMeter& meter() const { return m_meter; }
    SqliteDatabase& db() { return *m_db; }
    QString folder() const { return m_dir.path(); }

    /// Rows of a statement as column name to value.
    QList<QVariantMap> rows(const QString& sql)
    {
        QList<QVariantMap> result;
        SqlStatement statement = m_db->prepare(sql);
        while (statement.next()) {
            QVariantMap row;
            for (int c = 0; c < statement.columnCount(); ++c)
                row.insert(statement.columnName(c), statement.value(c));
            result << row;
        }
        return result;
    }

    /// Every row of every day table of a log, with `Day` set to its `LogTablesIndex`.
    QList<QVariantMap> dayRows(const QString& master, const QString& prefix)
    {
        QList<QVariantMap> result;
        for (const QVariantMap& day : rows(QStringLiteral("SELECT LogTablesIndex FROM [%1] "
                                                          "ORDER BY LogTablesIndex")
                                               .arg(master))) {
            const qint64 n = day.value(QStringLiteral("LogTablesIndex")).toLongLong();
            for (QVariantMap row :
                 rows(QStringLiteral("SELECT * FROM [%1%2]").arg(prefix).arg(n))) {
                row.insert(QStringLiteral("Day"), n);
                result << row;
            }
        }
        return result;
    }

private:
    QTemporaryDir m_dir;
    MeterSchema m_meterSchema;
    std::unique_ptr<SqliteDatabase> m_db;
    std::unique_ptr<PowerSystemModel> m_model;
    SimMeter m_meter;
};

/// Numbers of a sample column; an entry that is not a number fails the test.
QList<double> samples(const QVariant& column)
{
    QList<double> values;
    for (QString item : column.toString().split(QLatin1Char('\r'))) {
        if (item.startsWith(QLatin1Char('\n')))
            item.remove(0, 1);
        bool ok = false;
        values << item.toDouble(&ok);
        EXPECT_TRUE(ok) << "not a number: " << item.toStdString();
    }
    return values;
}

double rms(const QList<double>& x, qsizetype first, qsizetype count)
{
    double sum = 0.0;
    for (qsizetype i = first; i < first + count; ++i)
        sum += x.at(i) * x.at(i);
    return std::sqrt(sum / static_cast<double>(count));
}

/// Magnitude of DFT bin k over `count` samples from `first`.
double bin(const QList<double>& x, qsizetype first, qsizetype count, double k)
{
    double re = 0.0, im = 0.0;
    for (qsizetype i = 0; i < count; ++i) {
        const double angle = 2.0 * pi * k * static_cast<double>(i) / static_cast<double>(count);
        re += x.at(first + i) * std::cos(angle);
        im -= x.at(first + i) * std::sin(angle);
    }
    return std::hypot(re, im);
}

QString s(const char* text)
{
    return QString::fromLatin1(text);
}

int integer(const QVariantMap& row, const char* column)
{
    return row.value(s(column)).toInt();
}

/// The one-cycle RMS extremes of a capture's channel from its trigger on: the samples of the
/// capture's rows (first row and its contiguous followers) joined in order.
struct Extremes
{
    double low = 1e300;
    double high = 0.0;
};

Extremes eventExtremes(const QList<QVariantMap>& captureRows, int channel)
{
    QList<double> x;
    for (const QVariantMap& row : captureRows)
        x += samples(row.value(QStringLiteral("sample%1").arg(channel)));
    const int rate = integer(captureRows.first(), "SampleRate");
    const int trigger = integer(captureRows.first(), "TimingPT");
    Extremes e;
    for (qsizetype i = trigger; i + rate <= x.size(); ++i) {
        const double r = rms(x, i, rate);
        e.low = std::min(e.low, r);
        e.high = std::max(e.high, r);
    }
    return e;
}

} // namespace

// A meter keeping samples in its rows: every rate, the sample counts the placement expects,
// captures of known content, events that show in the samples, and PQ rows linked to them.
TEST(CaptureWriters, DatabaseCapturesHoldTheirContentAndPqRowsPointAtThem)
{
    CaptureFile file(2, 9.1);
    CaptureSettingsWriter::write(file.meter());
    WaveformLogWriter::write(file.meter(), WaveformSet::All);
    PqLogWriter::write(file.meter());

    QMap<int, QVariantMap> settings;
    for (const QVariantMap& row : file.rows(s("SELECT * FROM PQWaveLogDataItem")))
        settings.insert(integer(row, "Index"), row);
    ASSERT_EQ(settings.size(), 8);
    EXPECT_EQ(file.db().scalar(s("SELECT COUNT(*) FROM FullScales")).toInt(), 8);
    EXPECT_EQ(
        file.db().scalar(s("SELECT COUNT(*) FROM HSInputLabels WHERE Input_7_Label = ''")).toInt(),
        8);
    // Set points are percentages of the channel's full scale: the same numbers on the phase
    // and the line voltages, whose full scales differ by sqrt 3, and the dips the PQ log
    // records lie beneath the lower set point of their channel.
    for (const QVariantMap& setting : settings) {
        EXPECT_DOUBLE_EQ(setting.value(s("C0_L1")).toDouble(), 90.0);
        EXPECT_DOUBLE_EQ(setting.value(s("C9_L1")).toDouble(), 90.0);
        EXPECT_DOUBLE_EQ(setting.value(s("C11_L2")).toDouble(), 110.0);
        EXPECT_DOUBLE_EQ(setting.value(s("C5_L2")).toDouble(), 120.0);
        EXPECT_TRUE(setting.value(s("C5_L1")).isNull());
    }
    int dips = 0;
    for (const QVariantMap& pq : file.dayRows(s("AllPQLogs"), s("PQLog_"))) {
        if (integer(pq, "ConditionCode") != 2)
            continue;
        ++dips;
        const QVariant lower = settings.value(integer(pq, "Index"))
                                   .value(QStringLiteral("C%1_L1").arg(integer(pq, "ChannelID")));
        ASSERT_FALSE(lower.isNull());
        EXPECT_LT(pq.value(s("PQ%")).toDouble(), lower.toDouble());
    }
    EXPECT_GT(dips, 0);

    const QList<QVariantMap> waves = file.dayRows(s("AllWaveformLogs"), s("WaveformLog_"));
    ASSERT_FALSE(waves.isEmpty());
    QSet<int> rates, recCounters;
    QMap<QPair<int, int>, QVariantMap> byNumber; // (Index, WaveformNumber)
    for (const QVariantMap& row : waves) {
        const int rate = integer(row, "SampleRate");
        const int format = settings.value(integer(row, "Index")).value(s("RecordFormat")).toInt();
        rates << rate;
        recCounters << integer(row, "RecCounter");
        byNumber.insert({integer(row, "Index"), integer(row, "WaveformNumber")}, row);
        const int expected = rate <= 128 ? 1024 : format != -1 ? 1024 : rate == 256 ? 2048 : 4096;
        for (int c = 0; c < 15; ++c) {
            const QVariant column = row.value(QStringLiteral("sample%1").arg(c));
            if (column.isNull() || column.toString() == s("N/A"))
                continue;
            SCOPED_TRACE(QStringLiteral("rate %1 format %2 sample%3")
                             .arg(rate)
                             .arg(format)
                             .arg(c)
                             .toStdString());
            const QList<double> values = samples(column);
            EXPECT_EQ(values.size(), expected);
            if (c >= 7) {
                EXPECT_TRUE(std::all_of(values.cbegin(), values.cend(),
                                        [](double v) { return v == 0.0 || v == 1.0; }));
            }
        }
        EXPECT_EQ(row.value(s("ms")).typeId(), QMetaType::Double);
    }
    EXPECT_EQ(rates, (QSet<int>{16, 32, 64, 128, 256, 512}));
    EXPECT_EQ(recCounters.size(), waves.size());

    // Contiguous rows follow their capture's first row within the same setting; the event
    // captures at 128 reach WaveformNumber + 2.
    int secondFollowers = 0;
    for (const QVariantMap& row : waves) {
        if (row.value(s("Contiguous")).toInt() != -1)
            continue;
        const int number = integer(row, "WaveformNumber");
        EXPECT_TRUE(byNumber.contains({integer(row, "Index"), number - 1})) << number;
        if (integer(row, "CaptureSequence") == 2)
            ++secondFollowers;
    }
    EXPECT_GT(secondFollowers, 0);

    // Periodic captures of known content (docs/sim/captures.md): pure sines at settings 3
    // (16 per cycle) and 8 (256); 5th 4 % and 7th 3 % at setting 4; 1.5 x 5 % at setting 5.
    int periodic = 0;
    for (const QVariantMap& row : waves) {
        if (row.value(s("TriggeredBy1")).toString() != s("Periodic") ||
            integer(row, "CaptureSequence") != 0)
            continue;
        const int index = integer(row, "Index");
        const int rate = integer(row, "SampleRate");
        const QList<double> va = samples(row.value(s("sample0")));
        SCOPED_TRACE(index);
        if (index == 3 || index == 8) {
            ++periodic;
            // Whole cycles; 0.05 % covers the three decimals of the text.
            EXPECT_NEAR(rms(va, 0, va.size()), row.value(s("V0")).toDouble(),
                        5e-4 * row.value(s("V0")).toDouble());
        } else if (index == 4) {
            ++periodic;
            EXPECT_NEAR(bin(va, 0, rate, 5) / bin(va, 0, rate, 1), 0.04, 1e-3);
            EXPECT_NEAR(bin(va, 0, rate, 7) / bin(va, 0, rate, 1), 0.03, 1e-3);
            EXPECT_NEAR(bin(va, 0, rate, 3) / bin(va, 0, rate, 1), 0.0, 1e-3);
        } else if (index == 5) {
            ++periodic;
            // Two cycles: the 1.5 x tone falls on bin 3, the fundamental on bin 2.
            EXPECT_NEAR(bin(va, 0, 2 * rate, 3) / bin(va, 0, 2 * rate, 2), 0.05, 1e-3);
            EXPECT_EQ(row.value(s("sample4")).toString(), s("N/A")); // two CTs: no Ib
        }
    }
    EXPECT_EQ(periodic, 4);

    // PQ rows: each names the capture that shows its event, except the documented orphan.
    const QList<QVariantMap> events = file.dayRows(s("AllPQLogs"), s("PQLog_"));
    EXPECT_EQ(events.size(), file.meter().model->disturbances().size() + 1);
    int orphans = 0, sags = 0, swells = 0, transients = 0;
    for (const QVariantMap& pq : events) {
        EXPECT_EQ(pq.value(s("WaveformLink")).toInt(), -1);
        const int first = integer(pq, "SWNumber");
        const int index = integer(pq, "Index");
        QList<QVariantMap> capture;
        for (int n = first; n <= integer(pq, "EWNumber"); ++n) {
            if (byNumber.contains({index, n}))
                capture << byNumber.value({index, n});
        }
        if (first == CapturePlan::missingWaveformNumber) {
            ++orphans;
            EXPECT_TRUE(capture.isEmpty());
            continue;
        }
        ASSERT_EQ(capture.size(), integer(pq, "EWNumber") - first + 1) << first;
        const QVariantMap& head = capture.first();
        EXPECT_EQ(head.value(s("WTDate/Time")), pq.value(s("StartDate/Time")));
        EXPECT_DOUBLE_EQ(head.value(s("WTms")).toDouble(), pq.value(s("Startms")).toDouble());
        EXPECT_EQ(integer(head, "TimingPT"), integer(pq, "SSample"));

        const int channel = integer(pq, "ChannelID");
        const double fullScale = 120.0;
        const double percent = pq.value(s("PQ%")).toDouble();
        SCOPED_TRACE(QStringLiteral("capture %1 %2")
                         .arg(first)
                         .arg(pq.value(s("ConditionName")).toString())
                         .toStdString());
        switch (integer(pq, "ConditionCode")) {
        case 2:
            ++sags;
            // The lowest one-cycle RMS from the trigger on is the logged residual.
            EXPECT_NEAR(eventExtremes(capture, channel).low / fullScale * 100.0, percent, 0.5);
            break;
        case 1:
            ++swells;
            EXPECT_NEAR(eventExtremes(capture, channel).high / fullScale * 100.0, percent, 0.5);
            break;
        case 3: {
            ++transients;
            // One cycle before the trigger the wave is at the same phase: the difference is
            // the spike alone.
            const QList<double> x = samples(head.value(QStringLiteral("sample%1").arg(channel)));
            const int t = integer(head, "TimingPT");
            const int rate = integer(head, "SampleRate");
            EXPECT_NEAR(x.at(t) - x.at(t - rate), pq.value(s("PQValue")).toDouble(), 0.01);
            break;
        }
        default:
            ADD_FAILURE() << "condition code " << integer(pq, "ConditionCode");
        }
    }
    EXPECT_EQ(orphans, 1);
    EXPECT_GT(sags, 0);
    EXPECT_GT(swells, 0);
    EXPECT_GT(transients, 0);

    // Master rows count their day tables and span their records.
    for (const auto& [master, prefix] : {std::pair{s("AllWaveformLogs"), s("WaveformLog_")},
                                         std::pair{s("AllPQLogs"), s("PQLog_")}}) {
        for (const QVariantMap& day : file.rows(QStringLiteral("SELECT * FROM [%1]").arg(master))) {
            const QString table = prefix + day.value(s("LogTablesIndex")).toString();
            EXPECT_EQ(day.value(s("HTable")).toInt(), -1);
            EXPECT_EQ(
                day.value(s("Recs")).toInt(),
                file.db().scalar(QStringLiteral("SELECT COUNT(*) FROM [%1]").arg(table)).toInt());
            EXPECT_EQ(day.value(s("Records")), day.value(s("Recs")));
            EXPECT_TRUE(day.value(s("Date/Time")).toString().endsWith(s(" 00:00:00")));
        }
    }
}

// Split files of one meter: the event and transient sets share the numbering of a single
// file, so PQ rows written elsewhere still find their captures.
TEST(CaptureWriters, EventAndTransientFilesKeepOneNumbering)
{
    CaptureFile all(2, 9.1), events(2, 9.1), transients(2, 9.1);
    WaveformLogWriter::write(all.meter(), WaveformSet::All);
    WaveformLogWriter::write(events.meter(), WaveformSet::EventCaptures);
    WaveformLogWriter::write(transients.meter(), WaveformSet::Transients);

    auto numbers = [](CaptureFile& file) {
        QSet<int> result;
        for (const QVariantMap& row : file.dayRows(s("AllWaveformLogs"), s("WaveformLog_")))
            result << integer(row, "WaveformNumber");
        return result;
    };
    const QSet<int> event = numbers(events), transient = numbers(transients);
    EXPECT_FALSE(event.isEmpty());
    EXPECT_FALSE(transient.isEmpty());
    EXPECT_FALSE(event.intersects(transient));
    EXPECT_EQ(event + transient, numbers(all));
    for (const QVariantMap& row : transients.dayRows(s("AllWaveformLogs"), s("WaveformLog_")))
        EXPECT_EQ(integer(row, "Mode"), 2);
}

// A capture-file meter: rows name their CSV files, and each file holds what its row says in
// the layout the CSV reader searches.
TEST(CaptureWriters, CaptureFileMeterWritesItsCsvFiles)
{
    CaptureFile file(5, 9.1, 2);
    CaptureSettingsWriter::write(file.meter());
    WaveformLogWriter::write(file.meter(), WaveformSet::All);

    const QRegularExpression name(s("^csv\\\\(WAVEFORM|TRANSIENT)_\\d{4}\\.csv$"));
    const QList<QVariantMap> waves = file.dayRows(s("AllWaveformLogs"), s("WaveformLog_"));
    ASSERT_FALSE(waves.isEmpty());
    int checkedSine = 0, transientFiles = 0;
    for (const QVariantMap& row : waves) {
        const QString path = row.value(s("sample0")).toString();
        SCOPED_TRACE(path.toStdString());
        ASSERT_TRUE(name.match(path).hasMatch());
        EXPECT_EQ(path.contains(s("TRANSIENT")), integer(row, "Mode") == 2);
        EXPECT_TRUE(row.value(s("sample2")).isNull());
        const int count =
            row.value(s("sample1")).toString().split(QLatin1Char(',')).value(1).toInt();

        QFile csv(QDir(file.folder()).filePath(QString(path).replace(QLatin1Char('\\'), '/')));
        ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromLatin1(csv.readAll()).split(s("\r\n"));
        auto find = [&](const QString& label, int from = 0) {
            for (int i = from; i < lines.size(); ++i) {
                if (lines.at(i).section(QLatin1Char(','), 0, 0) == label)
                    return i;
            }
            return -1;
        };
        auto value = [&](int line) { return lines.at(line).section(QLatin1Char(','), 1, 1); };
        EXPECT_EQ(lines.first().contains(s("Transient")), path.contains(s("TRANSIENT")));
        EXPECT_EQ(value(find(s("Num Channels"))).toInt(), 8);

        // The trigger sample as the reader finds it: the transfer row holding the trigger
        // counter, counted below the marker row.
        const int counter = value(find(s("Trigger Time Counter"))).toInt();
        const int marker = find(s("**WaveSample****"));
        int hit = -1;
        for (int r = marker + 1; r - marker < count && hit < 0; ++r) {
            if (lines.at(r).startsWith(s("Samples Transfer Time Counter,")) &&
                value(r).toInt() == counter)
                hit = r;
        }
        ASSERT_GT(hit, 0);
        const int rate = integer(row, "SampleRate");
        EXPECT_EQ(rate / 4 - 1 + (hit - (marker + 1) - 1), integer(row, "TimingPT"));

        const int start = find(s("Waveform Samples Start"));
        ASSERT_GT(start, 0);
        QList<double> va;
        for (int i = start + 1; i < lines.size() && !lines.at(i).isEmpty(); ++i)
            va << lines.at(i).section(QLatin1Char(','), 4, 4).toDouble();
        EXPECT_EQ(va.size(), count);

        if (path.contains(s("TRANSIENT"))) {
            ++transientFiles;
            EXPECT_GT(find(s("DSP ADC Block Factors")), 0);
            EXPECT_EQ(find(s("Block 0"), find(s("Transient Details Blocks"))) > 0, true);
        } else if (row.value(s("TriggeredBy1")).toString() == s("Periodic") &&
                   integer(row, "Index") == 3) {
            // Counts of Va times the built-in factor and the PT ratio 120/120 give volts.
            for (double& v : va)
                v *= 3223.92 / 32768.0;
            EXPECT_NEAR(rms(va, 0, va.size()), row.value(s("V0")).toDouble(), 1e-3 * 120.0);
            ++checkedSine;
        }
    }
    EXPECT_EQ(checkedSine, 1);
    EXPECT_GT(transientFiles, 0);
    EXPECT_EQ(file.db().scalar(s("SELECT MAX(SampleRate) FROM PQWaveLogDataItem")).toInt(), 1024);

    // A folder that cannot be made (a file stands in its way) is reported, not ignored.
    CaptureFile blocked(5, 9.1, 1);
    QFile obstacle(QDir(blocked.folder()).filePath(s("csv")));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();
    EXPECT_THROW(WaveformLogWriter::write(blocked.meter(), WaveformSet::All), StorageError);
}

// Fixed-length captures, the shorter Talmo capture at 16 per cycle, and whole milliseconds in
// files older than 9.0.
TEST(CaptureWriters, FixedLengthTalmoAndOlderSchema)
{
    CaptureFile fixed(4, 8.6, 1), talmo(0, 8.6, 1);
    WaveformLogWriter::write(fixed.meter(), WaveformSet::All);
    PqLogWriter::write(fixed.meter());
    WaveformLogWriter::write(talmo.meter(), WaveformSet::All);

    for (const QVariantMap& row : fixed.dayRows(s("AllWaveformLogs"), s("WaveformLog_"))) {
        EXPECT_EQ(samples(row.value(s("sample0"))).size(), 2048);
        EXPECT_EQ(row.value(s("ms")).typeId(), QMetaType::LongLong);
    }
    for (const QVariantMap& row : fixed.dayRows(s("AllPQLogs"), s("PQLog_")))
        EXPECT_EQ(row.value(s("Startms")).typeId(), QMetaType::LongLong);
    int sixteen = 0;
    for (const QVariantMap& row : talmo.dayRows(s("AllWaveformLogs"), s("WaveformLog_"))) {
        if (integer(row, "SampleRate") == 16) {
            ++sixteen;
            EXPECT_EQ(samples(row.value(s("sample1"))).size(), 960);
        }
    }
    EXPECT_EQ(sixteen, 1);
}
