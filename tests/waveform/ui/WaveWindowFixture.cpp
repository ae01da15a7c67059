// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveWindowFixture.h"

#include "platform/SqlStatement.h"
#include "platform/SqliteDatabase.h"
#include "query/QueryContext.h"
#include "query/WaveformView.h"
#include "support/TestMeters.h"

#include <gtest/gtest.h>

namespace lorvane::test {

namespace {

/// One simulated meter for the whole program: writing it takes a while.
const QString& meterPath()
{
    static const QTemporaryDir folder;
    static const QString path = [] {
        const QString out = folder.filePath(QStringLiteral("Standard.DB"));
        const QStringList arguments =
            smallMeterArguments() + QStringList{QStringLiteral("--schema-version"),
                                                QStringLiteral("9.0"),
                                                QStringLiteral("--kind"),
                                                QStringLiteral("standard"),
                                                QStringLiteral("--out"),
                                                out,
                                                QStringLiteral("--hardware-name"),
                                                QStringLiteral("Main Switchboard")};
        return simulate(arguments) ? out : QString();
    }();
    return path;
}

} // namespace

WaveWindowFixture::WaveWindowFixture()
{
    m_scratch = scratchDatabase(m_dir, 5151);
    LogFileEntry entry;
    entry.dbPath = meterPath();
    entry.deviceTypeId = 3;
    entry.hardwareName = QStringLiteral("Main Switchboard");
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
