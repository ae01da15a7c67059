// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>
#include <vector>

namespace lorvane {

class SqliteDatabase;

/// Reads a dictionary table of three whole-number columns into memory, the form in which the
/// look-up tables are kept for the whole run.
class DictionaryTriples
{
public:
    using Triple = std::array<qint32, 3>;

    /// The rows of `table` in the order of its first column (then the second), each as the
    /// values of `columns`; a NULL reads as 0. An empty table gives an empty list. Throws
    /// StorageError when the table or a column is missing, the engine fails, or a value is
    /// not a whole number of 32 bits (the dictionary is then damaged).
    static std::vector<Triple> read(SqliteDatabase& dictionary, const QString& table,
                                    const std::array<QString, 3>& columns);
};

} // namespace lorvane
