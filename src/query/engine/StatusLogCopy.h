// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DayWalk.h"
#include "QueryCatalog.h"
#include "QueryContext.h"
#include "store/LogKind.h"

#include <QStringList>

namespace lorvane {

class SqliteDatabase;

/// The load shared by the input, relay, flicker and system event logs: walk the days of the
/// range, copy each day's rows that have any of their time stamps inside the range into the
/// query's table, stamp them with their file's device index. For inputs and relays, the
/// settings rows of every `Index` found follow from the same file.
class StatusLogCopy
{
public:
    struct Log
    {
        LogKind kind;
        /// Base of the query's table (`InputLogA_`).
        QString target;
        /// The time columns of which any one in the range lets a record in.
        QStringList timeColumns;
        /// The word of the progress text ("input", "flicker max/min").
        QString word;
        /// For inputs and relays: the chosen channels of a file's meter and the column that
        /// places a channel on its card (`InputIndex`, `RelayIndex`); a meter with none chosen
        /// gives all its records.
        QList<MeterItems::Channel> MeterItems::*channels = nullptr;
        QString channelColumn{};
    };

    /// Loads `log` into `numbers`' slice table over the context's range. `files` is the
    /// expanded file list (entries whose file cannot be read get `readable` cleared). Throws
    /// StorageError when a statement fails.
    static DayWalk::Result load(QueryContext& context, QList<LogFileEntry>& files,
                                const QueryNumbers& numbers, const Log& log);

    /// Copies the settings of every (`DeviceIndex`, `Index`) found in the slice table `logBase`
    /// from the file-wide table `settingsTable` of that device's file into the slice table
    /// `itemsBase`, stamped with the device index. Returns the number of settings rows.
    static qint64 copySettings(QueryContext& context, const QList<LogFileEntry>& files,
                               const QueryNumbers& numbers, const QString& logBase,
                               const QString& settingsTable, const QString& itemsBase);

private:
    /// " AND (...)" keeping the records of `chosen` (bound in `values`); empty for none.
    static QString channelFilter(const QList<MeterItems::Channel>& chosen, const QString& column,
                                 QVariantList& values);
    /// The columns `table` of the attached `schema` shares with the scratch table `target`,
    /// quoted, without `DeviceIndex`.
    static QString sharedColumns(SqliteDatabase& db, const QString& schema, const QString& table,
                                 const QString& target);
};

} // namespace lorvane
