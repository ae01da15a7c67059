// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LogKind.h"

#include <QString>
#include <QStringList>

namespace lorvane {

/// The constant name lists that drive all access to a meter file: master tables and per-log
/// prefixes by log kind, the companion tables by position, and the snapshot type names.
class SchemaCatalog
{
public:
    /// Master tables, index = log kind 0..11 (`ID_Table` ... `AllSystemEventLogs`).
    static const QStringList& masterTables();
    /// Per-log table prefixes by log kind ("" for kinds 0 to 2).
    static const QStringList& logTablePrefixes();
    /// Display names by log kind ("" for kind 0), in the language of the string catalogue.
    static QStringList logDisplayNames();
    /// Companion tables by position 0..18 (`HistLogTimeIndex_` ... `HSInputLabels`).
    static const QStringList& companionTables();
    /// Snapshot `TypeID` display names 0..25, in the language of the string catalogue.
    static QStringList snapshotTypeNames();

    /// Master table of a log kind 0..11; empty for any other number.
    static QString masterTable(int logKind);
    /// Per-day table of a log kind: prefix + n (`LimitsLog_7`); empty for the hourly kinds.
    static QString dayTable(LogKind kind, qint64 logTablesIndex);
    /// Hour tables of snapshots (kind 3) and demand (kind 4).
    static QString hourTimeIndexTable(LogKind kind, qint64 logTablesIndex, int hour);
    static QString hourValueTable(LogKind kind, qint64 logTablesIndex, int hour);
    /// Text of a snapshot `TypeID`; empty when out of range.
    static QString snapshotTypeName(int typeId);
};

} // namespace lorvane
