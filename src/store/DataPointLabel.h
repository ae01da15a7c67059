// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

class SqliteDatabase;

/// Turns a `DataPointId` into the name the user reads, from the dictionary `QLMNameList.DB`.
/// The id's range decides where its name lies:
///  - head (id / 200, rounded towards zero) below 1, negative ids included: the id as a number;
///  - 50000 to 199999: `Namelist`.`Label`;
///  - 200000 to 300000: `DeviceModbusMap`.`Description`;
///  - 300001 to 349999: `BrinMF20`.`Description`;
///  - every other id: the two-level index, "{head name} {item name}" from the `Types` row of
///    the head and the `Type_{ReferenceID}` row of the item (id % 200). These names go through
///    the string catalogue by their English text, so translated point names are found.
/// A NULL name counts as empty; a missing row or table gives "N/A {id}".
class DataPointLabel
{
public:
    static constexpr int headSize = 200;

    /// Head of the two-level index: `id / 200` with the sign of integer division.
    static constexpr int head(qint32 id) { return id / headSize; }
    /// Item within the head: `id % 200` with the sign of the id.
    static constexpr int item(qint32 id) { return id % headSize; }

    /// The label of `id`. Runs at most two statements; throws StorageError only when the
    /// dictionary cannot be read at all (a damaged file), never for a name that is missing.
    static QString text(SqliteDatabase& dictionary, qint32 id);

    /// "N/A {id}": the label of an id the dictionary does not name.
    static QString notAvailable(qint32 id);
};

} // namespace lorvane
