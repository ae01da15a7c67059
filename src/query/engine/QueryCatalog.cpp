// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueryCatalog.h"

#include "platform/SqlIdentifier.h"
#include "store/LogKind.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

QString QueryNumbers::table(const QString& base) const
{
    const QString stem = base.endsWith(QLatin1Char('_')) ? base.chopped(1) : base;
    return stem + QLatin1Char('_') + QString::number(query);
}

QString QueryNumbers::sliceTable(const QString& base) const
{
    return table(base) + QLatin1Char('_') + QString::number(slice);
}

QString QueryCatalog::stamp(const QDateTime& time)
{
    return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QStringList QueryCatalog::queryTableBases(LogKind queryType)
{
    switch (queryType) {
    case LogKind::Snapshots:
    case LogKind::Demand:
    case LogKind::Flicker:
        return {QStringLiteral("HLogTimeIndex_"), QStringLiteral("PowerGraph_")};
    case LogKind::Limits:
    case LogKind::Inputs:
    case LogKind::Relays:
        return {QStringLiteral("HLogTimeIndex_")};
    default:
        return {};
    }
}

QStringList QueryCatalog::sliceTableBases(LogKind queryType)
{
    const QString tagNames = QStringLiteral("TagNames_");
    const QString histLog = QStringLiteral("HistLog_");
    const QString scaled = QStringLiteral("ScaledFormats");
    const QStringList capture{QStringLiteral("WaveformLog_"), QStringLiteral("PQWaveLogDataItem_"),
                              QStringLiteral("HSInputLabels_"), QStringLiteral("FullScales_")};
    switch (queryType) {
    case LogKind::Snapshots:
    case LogKind::Demand:
        return {tagNames, histLog, scaled};
    case LogKind::Limits:
        return {tagNames, histLog, scaled, QStringLiteral("LimitsLog_")};
    case LogKind::Inputs:
        return {tagNames, histLog, scaled, QStringLiteral("InputLogDataItem_"),
                QStringLiteral("InputLogA_")};
    case LogKind::Relays:
        return {tagNames, histLog, scaled, QStringLiteral("RelayLogDataItem_"),
                QStringLiteral("RelayLogA_")};
    case LogKind::Flicker:
        return {tagNames, histLog, scaled, QStringLiteral("Flicker_MaxMin_")};
    // The waveform view keeps the PQ records of its range beside the captures: the window
    // shows the event a capture belongs to.
    case LogKind::Waveform:
    case LogKind::PowerQuality:
        return capture + QStringList{QStringLiteral("PQLog_")};
    case LogKind::SystemEvent:
        return {QStringLiteral("SystemEventLogA_")};
    default:
        return {};
    }
}

qint64 QueryCatalog::newSlice(qint64 query, const QDateTime& start, const QDateTime& end)
{
    SqliteDatabase& db = m_scratch.database();
    const QString subQueries = QueryNumbers{query, -1}.table(QStringLiteral("HistSubQuery_"));
    db.execute(QStringLiteral("INSERT INTO %1 ([SDate/Time], [EDate/Time]) VALUES (?, ?)")
                   .arg(SqlIdentifier::quote(subQueries)),
               {stamp(start), stamp(end)});
    return db.lastInsertRowId();
}

QueryNumbers QueryCatalog::createQuery(const QDateTime& start, const QDateTime& end,
                                       LogKind queryType, const QList<LogFileEntry>& files)
{
    SqliteDatabase& db = m_scratch.database();
    // The catalogue keeps the range in time order; the direction belongs to the view.
    db.execute(QStringLiteral("INSERT INTO AllQueries ([StartDate/Time], [EndDate/Time], "
                              "[QueryType]) VALUES (?, ?, ?)"),
               {stamp(std::min(start, end)), stamp(std::max(start, end)), int(queryType)});
    QueryNumbers numbers;
    numbers.query = db.lastInsertRowId();

    const QString devices =
        m_scratch.createWorkingTable(QStringLiteral("LogDevices"), numbers.query);
    SqlStatement insert = db.prepare(
        QStringLiteral("INSERT INTO %1 (DeviceIndex, DeviceTypeID, DBPath, HardwareName) "
                       "VALUES (?, ?, ?, ?)")
            .arg(SqlIdentifier::quote(devices)));
    for (int i = 0; i < files.size(); ++i) {
        insert.bindAll(
            {i + 1, files.at(i).deviceTypeId, files.at(i).dbPath, files.at(i).hardwareName});
        insert.run();
        insert.reset();
    }

    m_scratch.createWorkingTable(QStringLiteral("HistSubQuery"), numbers.query);
    numbers.slice = newSlice(numbers.query, start, end);
    for (const QString& base : sliceTableBases(queryType))
        m_scratch.createWorkingTable(base, numbers.query, numbers.slice);
    for (const QString& base : queryTableBases(queryType))
        m_scratch.createWorkingTable(base, numbers.query);
    return numbers;
}

QueryNumbers QueryCatalog::addSlice(qint64 query, const QDateTime& start, const QDateTime& end,
                                    LogKind queryType)
{
    QueryNumbers numbers{query, newSlice(query, start, end)};
    for (const QString& base : sliceTableBases(queryType))
        m_scratch.createWorkingTable(base, numbers.query, numbers.slice);
    return numbers;
}

void QueryCatalog::setSliceEnd(const QueryNumbers& numbers, const QDateTime& end)
{
    m_scratch.database().execute(
        QStringLiteral("UPDATE %1 SET [EDate/Time] = ? WHERE SubQIndex = ?")
            .arg(SqlIdentifier::quote(numbers.table(QStringLiteral("HistSubQuery_")))),
        {stamp(end), numbers.slice});
}

} // namespace lorvane
