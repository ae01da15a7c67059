// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveWindowFixture.h"

#include "platform/SqlStatement.h"
#include "platform/SqliteDatabase.h"
#include "query/engine/QueryContext.h"
#include "query/selection/SplitLogMeter.h"
#include "query/views/waveform/WaveformView.h"
#include "support/TestMeters.h"

#include <gtest/gtest.h>

namespace lorvane::test {

namespace {

/// One simulated meter of each kind for the whole program: writing one takes a while. Returns
/// the file the selection window opens.
const QString& meterPath(WaveWindowFixture::Meter meter)
{
    static const QTemporaryDir folder;
    const auto write = [](const QString& kind, const QString& out, const QString& name) {
        const QStringList arguments =
            smallMeterArguments() + QStringList{QStringLiteral("--schema-version"),
                                                QStringLiteral("9.0"),
                                                QStringLiteral("--kind"),
                                                kind,
                                                QStringLiteral("--out"),
                                                out,
                                                QStringLiteral("--hardware-name"),
                                                name};
        return simulate(arguments);
    };
    if (meter == WaveWindowFixture::Meter::Talmo) {
        static const QString path = [&] {
            const QString out = folder.filePath(QStringLiteral("Talmo.DB"));
            return write(QStringLiteral("talmo"), out, QStringLiteral("Chiller Plant")) ? out
                                                                                        : QString();
        }();
        return path;
    }
    if (meter == WaveWindowFixture::Meter::Standard) {
        static const QString path = [&] {
            const QString out = folder.filePath(QStringLiteral("Standard.DB"));
            return write(QStringLiteral("standard"), out, QStringLiteral("Main Switchboard"))
                       ? out
                       : QString();
        }();
        return path;
    }
    static const QString dml = [&] {
        const QString out = folder.filePath(QStringLiteral("Feeder15"));
        return write(QStringLiteral("split"), out, QStringLiteral("Feeder 15"))
                   ? folder.filePath(QStringLiteral("Feeder15/Feeder15.dml"))
                   : QString();
    }();
    return dml;
}

} // namespace

WaveWindowFixture::WaveWindowFixture(Meter meter)
{
    m_scratch = scratchDatabase(m_dir, 5151);
    m_meterFile = meterPath(meter);
    LogFileEntry entry;
    const bool files = meter == Meter::CaptureFiles;
    entry.dbPath = files ? SplitLogMeter::systemEventPath(m_meterFile) : m_meterFile;
    entry.deviceTypeId = files ? SplitLogMeter::deviceTypeId : meter == Meter::Talmo ? 0 : 3;
    entry.hardwareName = files                   ? QStringLiteral("Feeder 15")
                         : meter == Meter::Talmo ? QStringLiteral("Chiller Plant")
                                                 : QStringLiteral("Main Switchboard");
    entry.used = true;
    QueryContext context;
    context.scratch = m_scratch.get();
    context.files = {entry};
    context.start = QDateTime(QDate(2024, 3, 4), QTime(0, 0));
    context.end = QDateTime(QDate(2024, 3, 5), QTime(23, 59, 59));
    const ViewResult result = WaveformView::run(context);
    m_numbers = result.numbers;
    for (const QVariantMap& keys : result.grids.first().rowKeys)
        m_series << keys.value(QStringLiteral("RecCounter")).toInt();
}

int WaveWindowFixture::periodic(int sampleRate, int skip)
{
    SqlStatement query = scratch().prepare(
        QStringLiteral("SELECT RecCounter FROM [%1] WHERE TriggeredBy1 = 'Periodic' AND "
                       "SampleRate = ? AND Contiguous = 0 ORDER BY [Date/Time], ms")
            .arg(m_numbers.sliceTable(QStringLiteral("WaveformLog_"))));
    query.bind(1, static_cast<qint64>(sampleRate));
    while (query.next()) {
        if (skip-- == 0)
            return static_cast<int>(m_series.indexOf(static_cast<qint32>(query.integer(0))));
    }
    return -1;
}

} // namespace lorvane::test
