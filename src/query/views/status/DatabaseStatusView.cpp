// SPDX-License-Identifier: GPL-3.0-or-later
#include "DatabaseStatusView.h"

#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"
#include "query/engine/GridCellText.h"
#include "store/StampedTime.h"

#include <QFileInfo>
#include <QLocale>
#include <memory>
#include <stdexcept>

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

/// A stored date and time as the settings' locale shows it; "N/A" and texts that are no
/// stamp stay as they are.
QString shownTime(const QString& stored)
{
    try {
        return QLocale().toString(StampedTime::parseClock(stored), QLocale::ShortFormat);
    } catch (const std::invalid_argument&) {
        return stored;
    }
}

/// The day of a day index row.
QString shownDay(const QString& stored)
{
    try {
        return QLocale().toString(StampedTime::parseClock(stored).date(), QLocale::ShortFormat);
    } catch (const std::invalid_argument&) {
        return stored;
    }
}

/// The newest profile the meter's per-profile tables name; "N/A" when none does.
QString latestProfile(SqliteDatabase& db)
{
    qint64 latest = -1;
    for (const QString& table :
         {QStringLiteral("ScaledFormats"), QStringLiteral("User_Defined_Item_Labels")}) {
        if (!db.tableExists(table) || !db.tableHasField(table, QStringLiteral("ProfileIndex")))
            continue;
        const QVariant top = db.scalar(QStringLiteral("SELECT max([ProfileIndex]) FROM ") +
                                       SqlIdentifier::quote(table));
        if (!top.isNull())
            latest = std::max(latest, top.toLongLong());
    }
    return latest < 0 ? na() : QString::number(latest);
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
    std::unique_ptr<SqliteDatabase> opened;
    try {
        opened = std::make_unique<SqliteDatabase>(entry.dbPath, SqliteDatabase::Mode::ReadOnly);
        opened->scalar(QStringLiteral("SELECT count(*) FROM sqlite_master"));
    } catch (const StorageError& error) {
        row(grid, {userText("404135", "Cannot display information") + QLatin1Char('.')});
        if (unreadable)
            unreadable->append({entry.dbPath, error.detail()});
        return grid;
    }
    SqliteDatabase& db = *opened;
    // Each step stands alone: a table the file lacks shows "N/A" for its own rows only.
    const auto guarded = [](const auto& step) {
        try {
            step();
        } catch (const StorageError&) {
        }
    };
    const QFileInfo info(entry.dbPath);
    QString type = na(), name = na(), id = na();
    guarded([&] {
        SqlStatement device = db.prepare(QStringLiteral("SELECT * FROM [DeviceInformation]"));
        if (device.next()) {
            type = orNa(device.value(QStringLiteral("DeviceType")).toString());
            name = orNa(device.value(QStringLiteral("HardwareName")).toString());
            id = orNa(device.value(QStringLiteral("HardwareID")).toString());
        }
    });
    QString version = na(), note = na();
    guarded([&] {
        SqlStatement idTable = db.prepare(QStringLiteral("SELECT * FROM [ID_Table]"));
        if (idTable.next()) {
            version = QString::number(idTable.value(QStringLiteral("Version")).toDouble(), 'f', 1);
            note = orNa(idTable.value(QStringLiteral("Note")).toString());
        }
    });
    Span downloads{na(), na(), 0};
    guarded(
        [&] { downloads = span(db, QStringLiteral("AllLogs"), QStringLiteral("EntryDate/Time")); });
    QString points = na();
    guarded([&] {
        points = QString::number(
            db.scalar(QStringLiteral("SELECT count(DataID) FROM [DataPoints]")).toLongLong());
    });
    QString profile = na();
    guarded([&] { profile = latestProfile(db); });
    const QList<QPair<QString, QString>> header{
        {userText("404107", "Device #"), QString::number(deviceNumber)},
        {userText("404108", "Device Type"), type},
        {userText("404109", "Device Name"), name},
        {userText("404110", "Device ID"), id},
        {userText("404111", "File Name"), info.fileName()},
        {userText("404112", "Data file size"),
         QLocale().toString(info.size()) + QLatin1Char(' ') + userText("404113", "Bytes")},
        {userText("404114", "Number of downloads"), QString::number(downloads.rows)},
        {userText("404115", "First download"), shownTime(downloads.first)},
        {userText("404116", "Last download"), shownTime(downloads.last)},
        {userText("404117", "Number of data points"), points},
        {userText("404118", "Database file version"), version},
        {userText("404119", "Database file description"), note},
        {userText("404120", "Profile"), profile},
        {userText("404121", "Profile Last Update/Checksum"), na()},
    };
    for (const auto& [label, value] : header)
        row(grid, {label, value});

    row(grid, {userText("404122", "Data Log"), grid.columns.at(1), grid.columns.at(2),
               grid.columns.at(3), grid.columns.at(4)});
    // The snapshot index counts its records per hour of the day (`Recs_0` to `Recs_23`).
    const QString historical = QStringLiteral("AllHistoricalLogs");
    Span snapshots{na(), na(), 0};
    QList<qint64> perHour(24, 0);
    guarded([&] {
        snapshots = span(db, historical, QStringLiteral("Date/Time"));
        for (int h = 0; h < 24; ++h)
            perHour[h] = sum(db, historical, QStringLiteral("Recs_%1").arg(h));
    });
    qint64 allSnapshots = 0;
    for (qint64 n : perHour)
        allSnapshots += n;
    row(grid, {userText("404123", "Snapshots"), shownDay(snapshots.first), shownDay(snapshots.last),
               QString::number(snapshots.rows), QString::number(allSnapshots)});
    for (int h = 0; h < 24; ++h) {
        if (perHour.at(h) > 0)
            row(grid, {userText("404123", "Snapshots") + QStringLiteral(", ") +
                           userText("404124", "hour") + QLatin1Char(' ') + QString::number(h),
                       QString(), QString(), QString(), QString::number(perHour.at(h))});
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
        Span s{na(), na(), 0};
        qint64 records = 0;
        guarded([&] {
            s = span(db, table, QStringLiteral("Date/Time"));
            records = sum(db, table, QStringLiteral("Recs"));
        });
        row(grid, {label, shownDay(s.first), shownDay(s.last), QString::number(s.rows),
                   QString::number(records)});
    }

    partialDownloads(db, grid);
    return grid;
}

void DatabaseStatusView::partialDownloads(SqliteDatabase& db, GridTable& grid)
{
    row(grid, {userText("404132", "Partial Downloads"), userText("404133", "Last Date/Time"),
               userText("404134", "Last Index")});
    // The logs a download can stop in the middle of, in the order the file lists them.
    const QStringList labels{
        userText("404136", "Wave Trig"),       userText("404137", "WaveSample"),
        userText("404138", "Sys Event"),       userText("404139", "Limit SS"),
        userText("404140", "Limit Snapshots"), userText("404141", "Input SS"),
        userText("404142", "Input Snapshots"), userText("404143", "Relay SS"),
        userText("404144", "Relay Snapshots")};
    int shown = 0;
    try {
        if (db.tableExists(QStringLiteral("LastTimeStamps"))) {
            SqlStatement stamps = db.prepare(QStringLiteral(
                "SELECT * FROM [LastTimeStamps] WHERE [LogID] <> 0 ORDER BY [LogID]"));
            while (stamps.next()) {
                const QString label =
                    shown < labels.size()
                        ? labels.at(shown)
                        : orNa(stamps.value(QStringLiteral("LogName")).toString());
                row(grid, {label,
                           GridCellText::stamp(stamps.value(QStringLiteral("LastDateTime")),
                                               stamps.value(QStringLiteral("Lastms"))),
                           GridCellText::value(stamps.value(QStringLiteral("LastRecNum")))});
                ++shown;
            }
        }
    } catch (const StorageError&) {
    }
    if (shown == 0)
        row(grid, {na(), na(), na()});
}

} // namespace lorvane
