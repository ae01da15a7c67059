// SPDX-License-Identifier: GPL-3.0-or-later
#include "SelectionCheck.h"

#include "DataPointSelection.h"
#include "MeterTable.h"
#include "SplitLogMeter.h"
#include "TimeSelection.h"
#include "ViewDispatch.h"
#include "platform/UserText.h"
#include "query/engine/LogFileList.h"
#include "store/MeterDatabase.h"

#include <QFileInfo>

namespace lorvane {

namespace {

bool readsDataPoints(int button)
{
    return button == 1 || button == 3;
}

} // namespace

QString SelectionCheck::meterFault(const MeterTable& meters, int meterIndex, int logKind)
{
    const DeviceRecord& record = meters.device(meterIndex);
    LogFileEntry entry;
    entry.dbPath = record.filePath;
    entry.deviceTypeId = record.deviceTypeId;
    entry.hardwareName = record.hardwareName;
    entry.used = record.used;
    const bool split = record.deviceTypeId == SplitLogMeter::deviceTypeId;
    bool opened = false;
    bool holdsPoints = false;
    for (const LogFileEntry& file : LogFileList::expand({entry}, logKind)) {
        // A split-log meter keeps only some of its logs; a log file it lacks is no fault.
        if (split && !QFileInfo(file.dbPath).isFile())
            continue;
        try {
            MeterDatabase meter(file.dbPath);
            opened = true;
            holdsPoints =
                holdsPoints || meter.db().hasRows(QStringLiteral("SELECT DataID FROM DataPoints"));
        } catch (const std::exception&) {
            opened = false;
            break;
        }
    }
    if (!opened)
        return userText("301080", "Cannot open source data file") + QStringLiteral(": ") +
               record.hardwareName;
    if (!holdsPoints)
        return userText("301081", "Cannot find data points in data file") + QStringLiteral(": ") +
               record.hardwareName;
    return {};
}

SelectionCheck::Result SelectionCheck::validate(int button, const MeterTable& meters,
                                                const TimeSelection& time,
                                                const DataPointSelection& points,
                                                const std::function<void()>& chooseDataPoints)
{
    Result result;
    if (!meters.anyMeterSelected()) {
        result.messages << userText("301082", "Please select a meter data file") + QLatin1Char('.');
        return result;
    }
    if (button > 0 && !time.defined()) {
        result.messages << userText(
            "301083", "Please specify the date range to be used for parsing the log(s).");
        return result;
    }
    if (readsDataPoints(button) && points.count() == 0) {
        if (chooseDataPoints)
            chooseDataPoints();
        if (points.count() == 0)
            return result;
    }
    if (button < 1 || button > 3) {
        result.ok = true;
        return result;
    }
    const int logKind = int(ViewDispatch::logKindOf(button));
    for (int i = 0; i < meters.maxDevices(); ++i) {
        if (!meters.device(i).used)
            continue;
        const QString fault = meterFault(meters, i, logKind);
        if (fault.isEmpty())
            result.ok = true;
        else
            result.messages << fault;
    }
    return result;
}

} // namespace lorvane
