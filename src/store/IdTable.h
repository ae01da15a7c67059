// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

class SqliteDatabase;

/// The one reader of `ID_Table`, the row of a meter, scratch or dictionary database that bears
/// its schema version and the note of its last change.
class IdTable
{
public:
    /// `Version` of the first row; -1.0 when the table has no row.
    static double version(SqliteDatabase& db);
    /// `Note` of the first row; empty when the table has no row.
    static QString note(SqliteDatabase& db);
};

} // namespace lorvane
