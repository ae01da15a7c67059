// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LocalSystemSettings.h"
#include "OutsideComponent.h"
#include "StartupPaths.h"
#include "platform/WorkGuard.h"
#include "query/selection/DefaultSelection.h"
#include "store/DeviceDataLookUp.h"
#include "store/DeviceScaledFormats.h"
#include "store/DeviceTypeTable.h"
#include "store/SystemEventTexts.h"

#include <QString>
#include <array>
#include <memory>

namespace lorvane {

class SqliteDatabase;
class TempQueryDatabase;

/// The run-wide values that start-up fills and the rest of the program reads: the process's
/// name and id, formats and colours, the installation's folders, the scratch database, the
/// dictionary and its device types, the settings, the fixed data points and the command line.
struct RunContext
{
    struct Colour
    {
        int red = 0;
        int green = 0;
        int blue = 0;
    };

    /// One row of a fixed data point list handed to the log grid: selected flag, id, label.
    struct FixedDataPoint
    {
        bool selected = false;
        qint32 dataId = 0;
        QString label;
    };

    static constexpr std::array<qint32, 12> twelveFixedIds = {
        20617, 20621, 20625, 21017, 21021, 21025, 21203, 21204, 21205, 26003, 26004, 26005};
    static constexpr std::array<qint32, 6> sixFixedIds = {27401, 27402, 27403, 27404, 27405, 27406};

    RunContext();
    ~RunContext();
    RunContext(const RunContext&) = delete;
    RunContext& operator=(const RunContext&) = delete;

    qint64 processId = 0;
    QString shortName = QStringLiteral("Lorvane");
    /// "Lorvane (v{major}.{minor}.{revision}, PID={process id})"
    QString title;
    QString shortDateFormat;
    QString timeFormat;
    QString numberFormat = QStringLiteral("0.00");
    Colour headerColour{54, 94, 174};
    Colour headerTextColour{255, 255, 255};

    QString systemFolder;
    StartupPaths paths;
    bool templateFound = false;
    std::unique_ptr<TempQueryDatabase> scratch;
    /// Why there is no scratch database (its template and path named), told at first use.
    QString scratchProblem;
    /// The vocabulary of system events, in the catalogue's language once start-up filled it.
    SystemEventTexts eventTexts;
    QString helpFile;
    std::unique_ptr<SqliteDatabase> dictionary;
    DeviceTypeTable deviceTypes;
    LocalSystemSettings settings;
    /// The last selection of the selection window, read at start.
    DefaultSelection defaultSelection;
    std::array<FixedDataPoint, 12> twelveFixedPoints;
    std::array<FixedDataPoint, 6> sixFixedPoints;
    QString commandLine;
    DeviceDataLookUp deviceDataLookUp;
    DeviceScaledFormats deviceScaledFormats;
    bool technicianMode = false;
    /// The outside report and conversion component, as the export subsystem asks it.
    OutsideComponentProbe outsideComponent;
    /// Long work of any window: one piece at a time, and the frame's close waits for its end.
    WorkGuard work;

    /// The end of a run: closes the dictionary and the scratch database and deletes this
    /// process's scratch file. Safe to call more than once.
    void shutDown();
};

} // namespace lorvane
