// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformSimMeters.h"

#include "query/selection/SplitLogMeter.h"
#include "store/StampedTime.h"
#include "support/TestMeters.h"

#include <QDir>
#include <gtest/gtest.h>

namespace lorvane::test {

namespace {

const QTemporaryDir& meterFolder()
{
    static const QTemporaryDir folder;
    static const bool written = [] {
        const QStringList common =
            smallMeterArguments() +
            QStringList{QStringLiteral("--schema-version"), QStringLiteral("9.0")};
        const QList<QStringList> runs{
            {QStringLiteral("--kind"), QStringLiteral("standard"), QStringLiteral("--out"),
             folder.filePath(QStringLiteral("Standard.DB")), QStringLiteral("--hardware-name"),
             QStringLiteral("Main Switchboard")},
            {QStringLiteral("--kind"), QStringLiteral("talmo"), QStringLiteral("--seed"),
             QStringLiteral("2"), QStringLiteral("--out"),
             folder.filePath(QStringLiteral("Talmo.DB")), QStringLiteral("--hardware-name"),
             QStringLiteral("Chiller Plant")},
            {QStringLiteral("--kind"), QStringLiteral("split"), QStringLiteral("--seed"),
             QStringLiteral("3"), QStringLiteral("--out"),
             folder.filePath(QStringLiteral("Feeder15")), QStringLiteral("--hardware-name"),
             QStringLiteral("Feeder 15")}};
        for (const QStringList& run : runs) {
            if (!simulate(run + common))
                return false;
        }
        return true;
    }();
    (void)written;
    return folder;
}

LogFileEntry entry(const QString& path, qint32 type, const QString& name)
{
    LogFileEntry e;
    e.dbPath = path;
    e.deviceTypeId = type;
    e.hardwareName = name;
    e.used = true;
    return e;
}

} // namespace

WaveformSimMeters::WaveformSimMeters()
{
    m_scratch = scratchDatabase(m_dir, 4343);
}

LogFileEntry WaveformSimMeters::standard()
{
    return entry(meterFolder().filePath(QStringLiteral("Standard.DB")), 3,
                 QStringLiteral("Main Switchboard"));
}

LogFileEntry WaveformSimMeters::talmo()
{
    return entry(meterFolder().filePath(QStringLiteral("Talmo.DB")), 0,
                 QStringLiteral("Chiller Plant"));
}

LogFileEntry WaveformSimMeters::split()
{
    return entry(SplitLogMeter::systemEventPath(
                     meterFolder().filePath(QStringLiteral("Feeder15/Feeder15.dml"))),
                 SplitLogMeter::deviceTypeId, QStringLiteral("Feeder 15"));
}

QString WaveformSimMeters::splitLog(const QString& logName)
{
    return meterFolder().filePath(QStringLiteral("Feeder15/logs/%1/%1.db").arg(logName));
}

QDateTime WaveformSimMeters::at(const char* text)
{
    return StampedTime::parseClock(QString::fromLatin1(text));
}

QueryContext WaveformSimMeters::context(const QList<LogFileEntry>& files, const char* start,
                                        const char* end)
{
    QueryContext context;
    context.scratch = m_scratch.get();
    context.files = files;
    context.start = at(start);
    context.end = at(end);
    return context;
}

} // namespace lorvane::test
