// SPDX-License-Identifier: GPL-3.0-or-later
#include "DatabaseStatusView.h"

#include "GridCellText.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"

#include <QFileInfo>
#include <QLocale>

namespace lorvane {

namespace {

QString na()
{
    return userText("404100", "N/A");
}

QString orNa(const QString& text)
{
    return text.isEmpty() ? na() : text;
}

/// First and last value of `column` over `table` in order, and the row count; "N/A" for both
/// values when the table is empty or missing.
struct Span
{
    QString first;
    QString last;
    qint64 rows = 0;
};

Span span(SqliteDatabase& db, const QString& table, const QString& column)
{
    Span s{na(), na(), 0};
    if (!db.tableExists(table))
        return s;
    SqlStatement select =
        db.prepare(QStringLiteral("SELECT min(%1), max(%1), count(*) FROM %2")
                       .arg(SqlIdentifier::quote(column), SqlIdentifier::quote(table)));
    if (select.next() && select.integer(2) > 0) {
        s.first = orNa(select.text(0));
        s.last = orNa(select.text(1));
        s.rows = select.integer(2);
    }
    return s;
}

qint64 sum(SqliteDatabase& db, const QString& table, const QString& column)
{
    if (!db.tableExists(table) || !db.tableHasField(table, column))
        return 0;
    return db
        .scalar(QStringLiteral("SELECT total(%1) FROM %2")
                    .arg(SqlIdentifier::quote(column), SqlIdentifier::quote(table)))
        .toLongLong();
}

void row(GridTable& grid, const QStringList& cells)
{
    QStringList padded = cells;
    while (padded.size() < grid.columns.size())
        padded << QString();
    grid.rows << padded;
    grid.rowKeys << QVariantMap{};
    grid.rowPictures << QString();
}

} // namespace

QList<GridTable> DatabaseStatusView::run(const QList<LogFileEntry>& files,
                                         QList<Unreadable>* unreadable)
{
    QList<GridTable> grids;
    int number = 0;
    for (const LogFileEntry& entry : files) {
        if (entry.used)
            grids << file(entry, ++number, unreadable);
    }
    return grids;
}

GridTable DatabaseStatusView::file(const LogFileEntry& entry, int deviceNumber,
                                   QList<Unreadable>* unreadable)
{
    GridTable grid;
    grid.caption = userText("404101", "Data File Information");
    grid.columns =
        QStringList{userText("404102", "Item"), userText("404103", "First Date"),
                    userText("404104", "Last Date"), userText("404105", "Number of Days"),
                    userText("404106", "Number of Records")};
    try {
        SqliteDatabase db(entry.dbPath, SqliteDatabase::Mode::ReadOnly);
        const QFileInfo info(entry.dbPath);
        QString type = na(), name = na(), id = na();
        SqlStatement device = db.prepare(QStringLiteral("SELECT * FROM [DeviceInformation]"));
        if (device.next()) {
            type = orNa(device.value(QStringLiteral("DeviceType")).toString());
            name = orNa(device.value(QStringLiteral("HardwareName")).toString());
            id = orNa(device.value(QStringLiteral("HardwareID")).toString());
        }
        QString version = na(), note = na();
        SqlStatement idTable = db.prepare(QStringLiteral("SELECT * FROM [ID_Table]"));
        if (idTable.next()) {
            version = QString::number(idTable.value(QStringLiteral("Version")).toDouble(), 'f', 1);
            note = orNa(idTable.value(QStringLiteral("Note")).toString());
        }
        const Span downloads =
            span(db, QStringLiteral("AllLogs"), QStringLiteral("EntryDate/Time"));
        const QList<QPair<QString, QString>> header{
            {userText("404107", "Device #"), QString::number(deviceNumber)},
            {userText("404108", "Device Type"), type},
            {userText("404109", "Device Name"), name},
            {userText("404110", "Device ID"), id},
            {userText("404111", "File Name"), info.fileName()},
            {userText("404112", "Data file size"),
             QLocale().toString(info.size()) + QLatin1Char(' ') + userText("404113", "Bytes")},
            {userText("404114", "Number of downloads"), QString::number(downloads.rows)},
            {userText("404115", "First download"), downloads.first},
            {userText("404116", "Last download"), downloads.last},
            {userText("404117", "Number of data points"),
             QString::number(
                 db.scalar(QStringLiteral("SELECT count(DataID) FROM [DataPoints]")).toLongLong())},
            {userText("404118", "Database file version"), version},
            {userText("404119", "Database file description"), note},
            {userText("404120", "Profile"), na()},
            {userText("404121", "Profile Last Update/Checksum"), na()},
        };
        for (const auto& [label, value] : header)
            row(grid, {label, value});

        row(grid, {userText("404122", "Data Log"), grid.columns.at(1), grid.columns.at(2),
                   grid.columns.at(3), grid.columns.at(4)});
        const QString historical = QStringLiteral("AllHistoricalLogs");
        const Span snapshots = span(db, historical, QStringLiteral("Date/Time"));
        QList<qint64> perLog;
        qint64 allSnapshots = 0;
        for (int n = 0; n < 24; ++n) {
            perLog << sum(db, historical, QStringLiteral("Recs_%1").arg(n));
            allSnapshots += perLog.last();
        }
        row(grid, {userText("404123", "Snapshots"), snapshots.first, snapshots.last,
                   QString::number(snapshots.rows), QString::number(allSnapshots)});
        for (int n = 0; n < 24; ++n) {
            if (perLog.at(n) > 0)
                row(grid, {userText("404123", "Snapshots") + QStringLiteral(" ") +
                               userText("404124", "Log") + QLatin1Char(' ') + QString::number(n),
                           QString(), QString(), QString(), QString::number(perLog.at(n))});
        }
        const QList<QPair<QString, QString>> logs{
            {userText("404125", "Limits"), QStringLiteral("AllLimitsLogs")},
            {userText("404126", "Status Change (Inputs)"), QStringLiteral("AllInputLogs")},
            {userText("404127", "Control Output (Relays)"), QStringLiteral("AllRelayLogs")},
            {userText("404128", "Flicker"), QStringLiteral("AllFlickerLogs")},
            {userText("404129", "Waveforms"), QStringLiteral("AllWaveformLogs")},
            {userText("404130", "Power Quality"), QStringLiteral("AllPQLogs")},
            {userText("404131", "System Event"), QStringLiteral("AllSystemEventLogs")},
        };
        for (const auto& [label, table] : logs) {
            const Span s = span(db, table, QStringLiteral("Date/Time"));
            row(grid, {label, s.first, s.last, QString::number(s.rows),
                       QString::number(sum(db, table, QStringLiteral("Recs")))});
        }

        row(grid, {userText("404132", "Last Time Stamps"), userText("404133", "Last Date/Time"),
                   userText("404134", "Last Index")});
        bool anyStamp = false;
        if (db.tableExists(QStringLiteral("LastTimeStamps"))) {
            SqlStatement stamps = db.prepare(QStringLiteral(
                "SELECT * FROM [LastTimeStamps] WHERE [LogID] <> 0 ORDER BY [LogID]"));
            while (stamps.next()) {
                anyStamp = true;
                row(grid, {orNa(stamps.value(QStringLiteral("LogName")).toString()),
                           GridCellText::stamp(stamps.value(QStringLiteral("LastDateTime")),
                                               stamps.value(QStringLiteral("Lastms"))),
                           GridCellText::value(stamps.value(QStringLiteral("LastRecNum")))});
            }
        }
        if (!anyStamp)
            row(grid, {na(), na(), na()});
    } catch (const StorageError& error) {
        grid.rows.clear();
        grid.rowKeys.clear();
        grid.rowPictures.clear();
        row(grid, {userText("404135", "Cannot display information") + QLatin1Char('.')});
        if (unreadable)
            unreadable->append({entry.dbPath, error.detail()});
    }
    return grid;
}

} // namespace lorvane
