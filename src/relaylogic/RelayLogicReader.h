// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RelayLogicTree.h"
#include "query/engine/QueryCatalog.h"

#include <QVariantMap>

namespace lorvane {

class SqliteDatabase;

/// Reads what a relay logic tree is built from out of a relay query's tables in the scratch
/// database (the meter files are not opened again): the meter's `DeviceTypeID`
/// (`LogDevices_{Q}`), the record (`RelayLogA_{Q}_{S}`, by `DeviceIndex` and `GIndex`) and
/// its setting (`RelayLogDataItem_{Q}_{S}`, by `DeviceIndex`, `Index`, `ModuleIndex`,
/// `RelayIndex`).
class RelayLogicReader
{
public:
    /// The tree of the row with `keys` (`DeviceIndex`, `GIndex`) of the relay grid of query
    /// `numbers`. Throws Fault for a meter without a tree or a missing setting or record,
    /// StorageError when the tables cannot be read.
    static RelayLogicTree read(SqliteDatabase& scratch, const QueryNumbers& numbers,
                               const QVariantMap& keys);
};

} // namespace lorvane
