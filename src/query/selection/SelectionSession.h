// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AddFileToSystem.h"
#include "DataPointSelection.h"
#include "MeterTable.h"
#include "TimeSelection.h"
#include "TopQueryBuffer.h"
#include "ViewDispatch.h"

#include <QList>
#include <QString>
#include <memory>

namespace lorvane {

class DeviceTypeTable;

/// The selection of the run without a window: the open meters, the data points, the time
/// range, the buffer of the last query of each view button and the dispatch of a view button,
/// with the rules the selection window shows (the tree of devices and logs, the newest meter
/// file of a folder). The selection window, the graph windows and the command line take the
/// current meters, points and range from here.
class SelectionSession
{
public:
    /// One node of the tree of devices and logs: its key, its parent's key (empty for the
    /// root), its text and, for a meter, its file path.
    struct TreeNode
    {
        QString key;
        QString parentKey;
        QString text;
        QString filePath;
    };

    /// What `newestMeterFile` found: the path, or the refusal to show when the folder is
    /// not there.
    struct NewestFile
    {
        QString path;
        QString refusal;
    };

    /// `maxDevices` as configured (1 or 2, else 2); `scratchPath` the run's scratch file.
    SelectionSession(int maxDevices, const QString& scratchPath);

    MeterTable& meters() { return m_meters; }
    const MeterTable& meters() const { return m_meters; }
    DataPointSelection& dataPoints() { return m_points; }
    TimeSelection& timeSelection() { return m_time; }
    TopQueryBuffer& topQueryBuffer() { return m_buffer; }
    AddFileToSystem& addFile() { return *m_addFile; }
    ViewDispatch& dispatch() { return *m_dispatch; }

    /// Chooses the inputs, relays and demand items the views read from open meter
    /// `meterIndex` (0 is meter 1) and forgets the buffered queries, which read the old
    /// choice. Refused (false, nothing changed) for a meter not open or more than
    /// `MeterItems::demandCount` demand items.
    bool setMeterItems(int meterIndex, const MeterItems& items);

    /// AutoLoadDBs: the `*.DB` of `folder` with the latest last-write time (of files written
    /// at the same moment the first listed by name wins); empty when the folder holds none.
    /// A folder that is not there gives the refusal "Invalid path" and the advice.
    static NewestFile newestMeterFile(const QString& folder);

    /// The tree in display order (a parent before its children): the root "All Devices"
    /// (`ROOT`), one node per device type in use (`DevID#_{id}`), each open meter under its
    /// type (`Device_{i}`), its items (`DeItem_{n}|D_{i}`) and their logs
    /// (`LogsID_{n}|D_{i}|Logs_1`). A meter whose file does not open keeps its node without
    /// items.
    QList<TreeNode> tree(const DeviceTypeTable& deviceTypes) const;

private:
    MeterTable m_meters;
    DataPointSelection m_points;
    TimeSelection m_time;
    TopQueryBuffer m_buffer;
    std::unique_ptr<AddFileToSystem> m_addFile;
    std::unique_ptr<ViewDispatch> m_dispatch;
};

} // namespace lorvane
