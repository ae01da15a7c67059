// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterSimulator.h"

#include "CaptureSettingsWriter.h"
#include "FileHeaderWriter.h"
#include "FlickerLogWriter.h"
#include "InputLogWriter.h"
#include "LimitEvents.h"
#include "LimitLogWriter.h"
#include "PqLogWriter.h"
#include "PqTestLogWriter.h"
#include "RelayLogWriter.h"
#include "SimClock.h"
#include "SimDataPoints.h"
#include "SimMeter.h"
#include "SnapshotLogWriter.h"
#include "SplitLogLayout.h"
#include "SystemEventLogWriter.h"
#include "WaveformLogWriter.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
#include <algorithm>
#include <stdexcept>

namespace lorvane::sim {

namespace {

[[noreturn]] void refuse(const QString& message)
{
    throw std::runtime_error(message.toStdString());
}

void makeFolder(const QString& folder)
{
    if (!QDir().mkpath(folder))
        refuse(QStringLiteral("cannot create folder %1").arg(folder));
}

} // namespace

MeterSimulator::MeterSimulator(SimOptions options)
    : m_options(std::move(options)), m_profile(m_options.kind)
{
}

QString MeterSimulator::hardwareName() const
{
    if (!m_options.hardwareName.isEmpty())
        return m_options.hardwareName;
    return QStringLiteral("%1 #%2").arg(m_profile.deviceTypeName()).arg(m_options.seed);
}

QList<qint32> MeterSimulator::dataPoints(const MeterProfile& profile, int points)
{
    QList<qint32> ids = SimDataPoints::snapshotPoints(points);
    ids << profile.billingIds();
    if (profile.holds(SimLog::Interval2))
        ids << profile.demandPoints();
    if (profile.holds(SimLog::Flicker))
        ids << SimDataPoints::flickerIds();
    if (profile.compliance())
        ids << SimDataPoints::complianceIds();
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

void MeterSimulator::run() const
{
    const QString out = m_options.out;
    if (m_options.kind != MeterKind::Split) {
        if (QFileInfo::exists(out) && !m_options.overwrite)
            refuse(QStringLiteral("%1 already exists (use --overwrite to replace it)").arg(out));
        writeFile(out, m_profile.logs());
        return;
    }
    const QDir dir(out);
    if (dir.exists() && !dir.isEmpty() && !m_options.overwrite)
        refuse(QStringLiteral("folder %1 is not empty (use --overwrite to replace its meter)")
                   .arg(out));
    makeFolder(out);
    QFile master(SplitLogLayout::masterLogPath(out));
    if (!master.open(QIODevice::WriteOnly | QIODevice::Truncate))
        refuse(QStringLiteral("cannot write %1").arg(master.fileName()));
    master.close();
    for (SimLog log : m_profile.logs())
        writeFile(SplitLogLayout::databasePath(out, static_cast<int>(log)), {log});
}

bool MeterSimulator::versionHolds(const MeterSchema& schema, SimLog log)
{
    // A log is written only from the version whose step made the table it cannot do
    // without: its settings, its layout or its master.
    const char* table = nullptr;
    switch (log) {
    case SimLog::Inputs:
        table = "InputLogDataItem";
        break;
    case SimLog::Relays:
        table = "RelayLogDataItem";
        break;
    case SimLog::Flicker:
        table = "Flicker_MaxMin";
        break;
    case SimLog::SystemEvent:
        table = "AllSystemEventLogs";
        break;
    case SimLog::EN50160:
        table = "AllPQTestLogs";
        break;
    default:
        return true;
    }
    return !schema.table(QString::fromLatin1(table)).columns().isEmpty();
}

void MeterSimulator::writeFile(const QString& path, const QList<SimLog>& profileLogs) const
{
    QElapsedTimer timer;
    timer.start();
    const QFileInfo info(path);
    makeFolder(info.absolutePath());
    const QString partial = path + QStringLiteral(".partial");
    QFile::remove(partial);

    const qint64 start = m_options.start.startOfDay(Qt::UTC).toSecsSinceEpoch();
    const qint64 end = start + SimClock::secondsPerDay * m_options.days;
    PowerSystemModel::Config config;
    config.seed = m_options.seed;
    config.startSecond = start;
    config.endSecond = end;
    config.nominalVoltage = m_profile.nominalVoltage();
    config.frequency = m_profile.nominalFrequency();
    const PowerSystemModel model(config);

    try {
        SqliteDatabase db(partial, SqliteDatabase::Mode::Create);
        // The file is renamed into place only when complete, so the journal buys nothing.
        db.execute(QStringLiteral("PRAGMA journal_mode = OFF"));
        db.execute(QStringLiteral("PRAGMA synchronous = OFF"));
        SimMeter meter;
        meter.db = &db;
        meter.schema = MeterSchema(m_options.schemaVersion);
        meter.model = &model;
        meter.seed = m_options.seed;
        meter.pqTest = m_options.pqTest;
        meter.deviceTypeId = m_profile.deviceTypeId();
        meter.hardwareName = hardwareName();
        meter.folder = info.absolutePath();
        meter.startSecond = start;
        meter.endSecond = end;
        QList<SimLog> logs;
        for (SimLog log : profileLogs) {
            if (versionHolds(meter.schema, log))
                logs << log;
        }

        db.beginTransaction();
        for (const TableLayout& table : meter.schema.fileTables())
            db.executeScript(table.createSql());
        FileHeaderWriter::write(meter, m_profile, logs, dataPoints(m_profile, m_options.points));
        writeLogs(meter, logs);
        FileHeaderWriter::writeLastTimeStamps(meter, logs);
        db.commit();
    } catch (...) {
        QFile::remove(partial);
        throw;
    }
    if (QFileInfo::exists(path) && !QFile::remove(path))
        refuse(QStringLiteral("cannot replace %1").arg(path));
    if (!QFile::rename(partial, path))
        refuse(QStringLiteral("cannot rename %1 to %2").arg(partial, path));
    if (m_options.verbose) {
        QTextStream(stdout) << path << ": " << QFileInfo(path).size() / 1024 << " KiB in "
                            << timer.elapsed() << " ms\n";
    }
}

void MeterSimulator::writeLogs(SimMeter& meter, const QList<SimLog>& logs) const
{
    const SimSchedule schedule(meter.startSecond, meter.endSecond);
    const LimitEvents limits(*meter.model, schedule);
    auto holds = [&](SimLog log) { return logs.contains(log); };

    if (holds(SimLog::Interval1)) {
        IntervalLogPlan plan;
        plan.kind = LogKind::Snapshots;
        plan.points = SimDataPoints::snapshotPoints(m_options.points);
        // A meter without an energy log keeps its billing registers among the snapshots.
        if (!m_profile.holds(SimLog::Interval2)) {
            for (qint32 id : m_profile.billingIds()) {
                if (!plan.points.contains(id))
                    plan.points << id;
            }
        }
        plan.intervalMinutes = m_options.intervalMinutes;
        SnapshotLogWriter::write(meter, plan, schedule);
    }
    if (holds(SimLog::Interval2)) {
        IntervalLogPlan plan;
        plan.kind = LogKind::Demand;
        plan.points = m_profile.demandPoints();
        plan.intervalMinutes = 15;
        plan.typeId = 3;
        plan.testTypeId = 13;
        SnapshotLogWriter::write(meter, plan, schedule);
    }
    if (holds(SimLog::Limits))
        LimitLogWriter::write(meter, limits);
    if (holds(SimLog::Inputs))
        InputLogWriter::write(meter, schedule);
    if (holds(SimLog::Relays))
        RelayLogWriter::write(meter, limits, schedule);
    if (holds(SimLog::Flicker))
        FlickerLogWriter::write(meter, schedule);
    if (holds(SimLog::SystemEvent))
        SystemEventLogWriter::write(meter, schedule);
    if (holds(SimLog::Waveform) || holds(SimLog::Transient) || holds(SimLog::PowerQuality))
        CaptureSettingsWriter::write(meter);
    if (holds(SimLog::Waveform) || holds(SimLog::Transient)) {
        const WaveformSet set = !holds(SimLog::Transient)  ? WaveformSet::EventCaptures
                                : !holds(SimLog::Waveform) ? WaveformSet::Transients
                                                           : WaveformSet::All;
        WaveformLogWriter::write(meter, set);
    }
    if (holds(SimLog::PowerQuality))
        PqLogWriter::write(meter);
    if (holds(SimLog::EN50160))
        PqTestLogWriter::write(meter);
}

void MeterSimulator::writeDemo(const QString& dir, bool overwrite, bool verbose)
{
    struct DemoMeter
    {
        const char* path;
        MeterKind kind;
        quint64 seed;
        const char* name;
    };
    const DemoMeter meters[] = {{"Meter1.DB", MeterKind::Standard, 1, "Main Switchboard"},
                                {"Meter2.DB", MeterKind::Talmo, 2, "Chiller Plant"},
                                {"Feeder15", MeterKind::Split, 3, "Feeder 15"}};
    for (const DemoMeter& m : meters) {
        SimOptions options;
        options.out = QDir(dir).filePath(QString::fromLatin1(m.path));
        options.kind = m.kind;
        options.seed = m.seed;
        options.hardwareName = QString::fromLatin1(m.name);
        options.overwrite = overwrite;
        options.verbose = verbose;
        MeterSimulator(options).run();
    }
}

} // namespace lorvane::sim
