// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/QueryCatalog.h"

#include <QList>
#include <QString>

namespace lorvane {

class SqliteDatabase;

/// The tables of a meter's configuration as grids: the settings rows a query copied (input
/// and relay settings, one row each or one setting in two columns), and the settings tables
/// of a meter file as `lorvane-cli setup` prints them.
class SetupRecordViews
{
public:
    /// Every row of the slice table `itemsBase` (`InputLogDataItem_`) with all its columns,
    /// ordered by device, `Index`, module and the input or relay; `caption` names the grid.
    /// Throws StorageError.
    static GridTable settingsGrid(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                  const QString& itemsBase, const QString& caption);

    /// The input setting of one input as "Setting" and value rows: "Module Name", "Input
    /// Name", "Module Index", "Module Address", then the further columns of the row. A row
    /// without a setting gives the heads with empty values. Throws StorageError.
    static GridTable inputSetting(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                  qint64 deviceIndex, qint64 index, qint64 moduleIndex,
                                  qint64 inputIndex);
    /// The relay setting of one relay as "Item" and "Setting" rows, with its gate texts and,
    /// for device types with a gate table, the rows "Gate A" to "Gate G". Throws StorageError.
    static GridTable relaySetting(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                  qint64 deviceIndex, qint64 index, qint64 moduleIndex,
                                  qint64 relayIndex, int deviceTypeId);

    /// The PQ and waveform setting of a capture or PQ row as a label column and five value
    /// columns: the general rows "Device", "HookUp" (its word, and its picture as the row's
    /// picture), "Sampling Rate", "Capture Num", "Capture Item(s)"; the channel block (set
    /// points with their senses in percent of the channel's full scale and in units, the PQ
    /// enable, whether a capture triggers at each set point); the high-speed inputs with their
    /// enables and state names; the full scales and the transformer ratios. A row whose `Index`
    /// has no setting gives the heads with empty values. Throws StorageError.
    static GridTable pqWaveSetting(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                   qint64 deviceIndex, qint64 index);

    /// The settings tables a meter file holds, in this order, those it lacks left out:
    /// "DeviceInformation", "InputLogDataItem", "RelayLogDataItem", "LimitsLogDataItem",
    /// "PQWaveLogDataItem", "FullScales", "HSInputLabels", "ScaledFormats".
    static QStringList meterTables();
    /// One settings table of an open meter file as a grid captioned with the table's name,
    /// its columns as they stand, `HookUp` shown as its word. Throws StorageError.
    static GridTable meterTable(SqliteDatabase& meter, const QString& table);

    /// The word of a hook-up value ("Wye", "Delta, 3 CTs" ...); "N/A" for any other value.
    static QString hookUpWord(const QVariant& value);
    /// The picture of a hook-up value (`WWye` ...); empty when it has none.
    static QString hookUpPicture(const QVariant& value);
};

} // namespace lorvane
