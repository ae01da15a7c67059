// SPDX-License-Identifier: GPL-3.0-or-later
#include "ViewDispatch.h"

#include "AddFileToSystem.h"
#include "DataPointSelection.h"
#include "MeterTable.h"
#include "SelectionCheck.h"
#include "SplitLogMeter.h"
#include "TimeSelection.h"
#include "TopQueryBuffer.h"
#include "ViewButtons.h"

#include <QFileInfo>

namespace lorvane {

namespace {

struct GridView
{
    int button;
    LogKind kind;
    int subKind;
};

const GridView gridViews[] = {
    {ViewButtons::DatabaseStatus, LogKind::DatabaseStatus, 0},
    {ViewButtons::Snapshots, LogKind::Snapshots, 0},
    {ViewButtons::Demand, LogKind::Demand, 0},
    {ViewButtons::Limits, LogKind::Limits, 4},
    {ViewButtons::Waveform, LogKind::Waveform, 0},
    {ViewButtons::PowerQuality, LogKind::PowerQuality, 0},
    {ViewButtons::Inputs, LogKind::Inputs, 5},
    {ViewButtons::Relays, LogKind::Relays, 6},
    {ViewButtons::Flicker, LogKind::Flicker, 0},
    {ViewButtons::SystemEvent, LogKind::SystemEvent, 0},
    {ViewButtons::EN50160, LogKind::EN50160, 0},
};

const GridView* gridView(int button)
{
    for (const GridView& view : gridViews) {
        if (view.button == button)
            return &view;
    }
    return nullptr;
}

ViewDispatch::Items itemsOf(int button)
{
    switch (button) {
    case ViewButtons::Limits:
        return ViewDispatch::Items::DataPointTable;
    case ViewButtons::Inputs:
        return ViewDispatch::Items::MeterInputs;
    case ViewButtons::Relays:
        return ViewDispatch::Items::MeterRelays;
    case ViewButtons::Demand:
        return ViewDispatch::Items::MeterDemand;
    default:
        return ViewDispatch::Items::DataPoints;
    }
}

QList<int> comboSelections(const MeterTable& meters)
{
    QList<int> combos;
    for (int i = 0; i < meters.maxDevices(); ++i)
        combos << meters.comboSelection(i);
    return combos;
}

/// The `.dml` the log window lists: the one opened, else the folder of the split-log meter's
/// file (the window needs only the folder).
QString deviceMasterLogOf(const MeterTable& meters)
{
    if (!meters.deviceMasterLog().isEmpty())
        return meters.deviceMasterLog();
    for (const DeviceRecord& d : meters.devices()) {
        if (d.used && d.deviceTypeId == SplitLogMeter::deviceTypeId)
            return SplitLogMeter::dmlFolderOfLogFile(d.filePath) + QLatin1Char('/');
    }
    return {};
}

} // namespace

ViewDispatch::ViewDispatch(MeterTable& meters, DataPointSelection& points, TimeSelection& time,
                           TopQueryBuffer& buffer, AddFileToSystem& addFile)
    : m_meters(meters), m_points(points), m_time(time), m_buffer(buffer), m_addFile(addFile)
{
}

LogKind ViewDispatch::logKindOf(int button)
{
    const GridView* view = gridView(button);
    return view ? view->kind : LogKind::DatabaseStatus;
}

int ViewDispatch::subKindOf(int button)
{
    const GridView* view = gridView(button);
    return view ? view->subKind : 0;
}

ViewDispatch::Request ViewDispatch::Command2_Click(int button, const QDateTime& now,
                                                   int sortDirection, const Dialogs& dialogs)
{
    Request request;
    request.button = button;
    if (button < 0 || button >= ViewButtons::count)
        return request;
    if (button == ViewButtons::Billing) {
        request.action = Action::Billing;
        return request;
    }
    // The limit view checks its own selection when it loads.
    if (button != ViewButtons::Limits) {
        const SelectionCheck::Result check =
            SelectionCheck::validate(button, m_meters, m_time, m_points, dialogs.chooseDataPoints);
        request.messages = check.messages;
        if (!check.ok)
            return request;
    }

    const QList<int> combos = comboSelections(m_meters);
    if (combos != m_lastCombos)
        m_buffer.ClearTopQueryBuffer(true);
    m_lastCombos = combos;

    const TimeSelection::Bounds bounds = m_time.bounds(now);
    QDateTime start = bounds.start;
    QDateTime end = bounds.end;
    if (m_time.roundsSeconds())
        end = end.addSecs(59);

    if (button == ViewButtons::Reports || button == ViewButtons::Pqdif ||
        button == ViewButtons::Comtrade) {
        request.action = Action::Export;
        request.comtrade = button == ViewButtons::Comtrade;
        return request;
    }

    if (button == ViewButtons::DatabaseStatus && m_meters.splitLogMeterUsed()) {
        const QString chosen = dialogs.chooseSplitLog
                                   ? dialogs.chooseSplitLog(deviceMasterLogOf(m_meters))
                                   : QString();
        if (chosen.isEmpty()) {
            request.action = Action::SplitLogNeeded;
            return request;
        }
        m_meters.setStoredDevicePath(chosen);
        // The chosen log replaces the split-log meter's own entry, never the other meter.
        const int splitMeter = m_meters.splitLogMeterIndex();
        const AddFileToSystem::Outcome added =
            m_addFile.run(chosen, QFileInfo(chosen).fileName(), splitMeter);
        request.messages << added.messages;
        if (splitMeter == 0)
            m_meters.setMeter2Selectable(false);
        if (!added.added)
            return request;
    }

    request.logKind = logKindOf(button);
    request.subKind = subKindOf(button);
    request.sortDirection = sortDirection;
    const bool swap = sortDirection == 0 ? !(start < end) : start < end;
    if (swap)
        std::swap(start, end);
    request.start = start;
    request.end = end;

    request.filesCounter = m_meters.usedCount();
    request.itemsCounter = m_points.count();
    request.items = itemsOf(button);
    if (request.items == Items::DataPointTable)
        request.itemIds = QList<qint32>(m_points.ids().begin(), m_points.ids().end());
    else if (request.items == Items::DataPoints)
        request.itemIds = m_points.usedIds();
    request.files = m_meters.usedFiles();
    for (LogFileEntry& file : request.files) {
        file.startTime = start;
        file.endTime = end;
    }
    request.usesDataPoints = !(button == ViewButtons::EN50160 && m_meters.splitLogMeterUsed());

    request.action = Action::Grid;
    request.fresh = request.logKind == LogKind::DatabaseStatus || !m_buffer.holds(button);
    return request;
}

} // namespace lorvane
