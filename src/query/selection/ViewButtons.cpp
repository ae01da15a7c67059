// SPDX-License-Identifier: GPL-3.0-or-later
#include "ViewButtons.h"

#include "MeterTable.h"
#include "SplitLogMeter.h"

#include <QFileInfo>

namespace lorvane {

namespace {

/// Buttons of the inventory rule, each with the log kind that enables it.
struct Rule
{
    ViewButtons::Button button;
    LogKind log;
};

const Rule inventoryRules[] = {
    {ViewButtons::Snapshots, LogKind::Snapshots},
    {ViewButtons::Waveform, LogKind::Waveform},
    {ViewButtons::PowerQuality, LogKind::PowerQuality},
    {ViewButtons::Inputs, LogKind::Inputs},
    {ViewButtons::Relays, LogKind::Relays},
    {ViewButtons::Flicker, LogKind::Flicker},
    {ViewButtons::SystemEvent, LogKind::SystemEvent},
    {ViewButtons::Limits, LogKind::Limits},
    {ViewButtons::Billing, LogKind::Billing},
    {ViewButtons::EN50160, LogKind::Compliance},
};

const Rule basicRules[] = {
    {ViewButtons::Snapshots, LogKind::Snapshots},
    {ViewButtons::SystemEvent, LogKind::SystemEvent},
    {ViewButtons::Billing, LogKind::Billing},
};

template <size_t N>
void apply(const Rule (&rules)[N], const DeviceRecord& meter, ViewButtons::States& states)
{
    for (const Rule& rule : rules) {
        if (meter.hasLog(rule.log))
            states[rule.button] = true;
    }
}

/// A log the split-log meter keeps: its file exists and holds something.
bool logKept(const QString& folder, int log)
{
    const QFileInfo file(SplitLogMeter::logFilePath(folder, log));
    return file.isFile() && file.size() > 0;
}

void applySplitLog(const DeviceRecord& meter, ViewButtons::States& states)
{
    const QString folder = SplitLogMeter::dmlFolderOfLogFile(meter.filePath);
    const auto kept = [&](int log) { return logKept(folder, log); };
    // The interval logs 1 to 8 and the event triggered log all hold snapshots.
    for (int log : {1, 2, 18, 19, 20, 21, 22, 23, 24}) {
        if (kept(log))
            states[ViewButtons::Snapshots] = true;
    }
    states[ViewButtons::Limits] |= kept(3);
    states[ViewButtons::Inputs] |= kept(5);
    states[ViewButtons::Relays] |= kept(7);
    states[ViewButtons::Flicker] |= kept(9);
    states[ViewButtons::Waveform] |= kept(10) || kept(25);
    states[ViewButtons::SystemEvent] |= kept(11);
    states[ViewButtons::PowerQuality] |= kept(13);
    states[ViewButtons::Billing] |= meter.hasLog(LogKind::Billing);
    // The compliance pages need the test log and the interval logs the tests are built on.
    states[ViewButtons::EN50160] |= kept(16) && (kept(2) || (kept(22) && kept(23)));
}

} // namespace

ViewButtons::States ViewButtons::enabledBy(const DeviceRecord& meter)
{
    States states{};
    switch (meter.deviceTypeId) {
    case 0:
    case 3:
    case 4:
        states[DatabaseStatus] = true;
        apply(inventoryRules, meter, states);
        if (meter.deviceTypeId == 4)
            states[EN50160] = false;
        break;
    case SplitLogMeter::deviceTypeId:
        states[DatabaseStatus] = true;
        applySplitLog(meter, states);
        break;
    case 6:
        states[DatabaseStatus] = true;
        apply(basicRules, meter, states);
        break;
    default:
        break;
    }
    return states;
}

ViewButtons::States ViewButtons::enabled(const MeterTable& meters, bool exportComponentPresent)
{
    States states{};
    bool anyUsed = false;
    for (const DeviceRecord& meter : meters.devices()) {
        if (!meter.used)
            continue;
        anyUsed = true;
        const States one = enabledBy(meter);
        for (int i = 0; i < count; ++i)
            states[i] = states[i] || one[i];
    }
    for (Button exportButton : {Reports, Pqdif, Comtrade})
        states[exportButton] = anyUsed && exportComponentPresent;
    return states;
}

} // namespace lorvane
