// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"
#include "store/LogKind.h"

#include <QDateTime>
#include <QList>
#include <QStringList>
#include <functional>

namespace lorvane {

class AddFileToSystem;
class DataPointSelection;
class MeterTable;
class TimeSelection;
class TopQueryBuffer;

/// The press of a view button (`Command2_Click`) up to the hand-over to the grid window: the
/// check of the selection, and every field the grid is given, in the order it is given them.
class ViewDispatch
{
public:
    enum class Action
    {
        Refused,        ///< the selection check failed; `messages` say why
        Billing,        ///< the Energy Billing Module is launched
        Export,         ///< reports, PQDIF or COMTRADE (`comtrade`) by the export component
        SplitLogNeeded, ///< no log of the split-log meter was chosen: the press ends
        Grid,           ///< the grid window shows the view
    };

    /// Which list of items the grid is given besides the files.
    enum class Items
    {
        None,
        DataPointTable, ///< the 128 rows of the data point table, unused ones 0
        DataPoints,     ///< the positive rows
        MeterInputs,    ///< each used meter's selected inputs
        MeterRelays,    ///< each used meter's selected relays
        MeterDemand,    ///< each used meter's 12 demand items
    };

    /// What the grid window is handed.
    struct Request
    {
        Action action = Action::Refused;
        bool comtrade = false;
        QStringList messages;

        LogKind logKind = LogKind::DatabaseStatus;
        int subKind = 0;
        int button = 0;
        int page = 1;
        int secondPage = 1;
        int thirdPageFlag = 1;
        int fourthPageField = 0;
        /// 0 ascending, 1 descending.
        int sortDirection = 0;
        /// Range in the grid's direction, 59 seconds past a "previous" rule's end.
        QDateTime start;
        QDateTime end;
        int filesCounter = 0;
        int itemsCounter = 0;
        Items items = Items::None;
        QList<qint32> itemIds;
        QList<LogFileEntry> files;
        /// The view reads the data point selection (cleared for EN 50160 of a split-log meter).
        bool usesDataPoints = true;
        /// `LoadQuery(true)`: the meter files are read; false shows the buffered query again.
        bool fresh = true;
    };

    /// Callbacks to the windows the press may open.
    struct Dialogs
    {
        /// The data point dialog (`Command3_Click(2)`).
        std::function<void()> chooseDataPoints;
        /// The Device Master Log window for the `.dml` path: the chosen log database, or empty
        /// when cancelled.
        std::function<QString(const QString&)> chooseSplitLog;
    };

    ViewDispatch(MeterTable& meters, DataPointSelection& points, TimeSelection& time,
                 TopQueryBuffer& buffer, AddFileToSystem& addFile);

    /// Presses view button `button` (0 to 14) at `now`, `sortDirection` being the default sort
    /// direction of the sort settings. Never throws but the program-ending version faults of
    /// AddFileToSystem when a split-log file is opened.
    Request Command2_Click(int button, const QDateTime& now, int sortDirection,
                           const Dialogs& dialogs);

    /// `LogKind` of a grid button; Database Status for the buttons without a grid.
    static LogKind logKindOf(int button);
    /// Sub kind of a grid button: 4 limits, 5 inputs, 6 relays, else 0.
    static int subKindOf(int button);

private:
    MeterTable& m_meters;
    DataPointSelection& m_points;
    TimeSelection& m_time;
    TopQueryBuffer& m_buffer;
    AddFileToSystem& m_addFile;
    QList<int> m_lastCombos;
};

} // namespace lorvane
