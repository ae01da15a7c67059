// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"
#include "query/engine/QueryCatalog.h"

#include <QList>

namespace lorvane {

class SqliteDatabase;

/// Copies every meter's scaled energy formats into `ScaledFormats_{Q}_{S}`, stamped with the
/// meter's device index, so the grids can format values per meter.
class ScaledFormatsLoader
{
public:
    /// Reads `ScaledFormats` of every used file of `files`; a file that cannot be read or has
    /// no such table (files before schema 8.3) adds nothing. Returns the rows copied. Throws
    /// StorageError when a statement on the scratch database fails.
    static qint64 load(SqliteDatabase& db, const QList<LogFileEntry>& files,
                       const QueryNumbers& numbers);
};

} // namespace lorvane
