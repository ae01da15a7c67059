// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "QueryCatalog.h"
#include "store/DateTimeText.h"
#include "store/LogKind.h"
#include "store/StampedTime.h"

#include <QHash>
#include <QString>

namespace lorvane {

class SqliteDatabase;

/// The cell texts the event grids share: stamps with their fraction, numbers in the user's
/// pattern, and the meters of a query by device index (from `LogDevices_{Q}`).
class EventCellText
{
public:
    /// Reads the device list of `numbers.query`; `dataFormat` is the user's number pattern
    /// ("0.00": two decimals). Throws StorageError when the device list cannot be read.
    EventCellText(SqliteDatabase& db, const QueryNumbers& numbers, const QString& dataFormat);

    /// A stored stamp (`YYYY-MM-DD HH:MM:SS`) with its fraction in the grids' date format; a
    /// text that is no stamp comes back unchanged.
    QString stamp(const QString& stored, double ms, StampedTime::Fraction scale) const;
    /// A value with group separators and the decimals of the user's pattern ("#,##" + pattern).
    QString value(double number) const;
    /// The meter name of a device index (from 1); the index as text when it is unknown.
    QString deviceName(qint64 deviceIndex) const;
    /// The database file of a device index; empty when unknown.
    QString devicePath(qint64 deviceIndex) const;
    /// The device indexes that are files of the same meter as `deviceIndex` (a split-log meter
    /// has one file per log), `deviceIndex` included.
    QList<qint64> sameMeter(qint64 deviceIndex) const;
    const DateTimeText& dateTimeText() const { return m_dates; }

    /// The ORDER BY clause of an event grid: the sort item `sortItem` of `kind`'s list ("" for
    /// Date/Time) in the direction, the record time, then `tieBreak` (already quoted). Throws
    /// Fault naming the item when the kind has no such sort item.
    static QString orderBy(LogKind kind, const QString& sortItem, bool descending,
                           const QString& tieBreak);

private:
    struct Device
    {
        QString name;
        QString path;
        QString meter; ///< the file, or the folder of a split-log meter
    };
    QHash<qint64, Device> m_devices;
    DateTimeText m_dates;
    QString m_pattern;
};

} // namespace lorvane
