// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"

#include <QList>
#include <QPair>
#include <QString>
#include <array>

namespace lorvane {

class SqliteDatabase;
class TopQueryBuffer;
struct DefaultSelection;

/// One row of the data point lists: a data id and its name.
struct DataPointRow
{
    qint32 id = 0;
    QString name;
};

/// The data points the Snapshots and Limits views show: a table of 128 rows (id 0 = unused),
/// the copy of the last accepted table, and the two lists of the data point dialog.
class DataPointSelection
{
public:
    static constexpr int rows = 128;

    /// Ids of the table, row by row; 0 for an unused row.
    const std::array<qint32, rows>& ids() const { return m_ids; }
    /// Name of table row `row` (0 to 127); throws std::out_of_range outside.
    const QString& name(int row) const { return m_names.at(static_cast<size_t>(row)); }
    /// The positive ids in table order (the rows handed to a view).
    QList<qint32> usedIds() const;
    /// Number of positive ids.
    int count() const { return static_cast<int>(usedIds().size()); }

    /// The table holds an accepted choice; false after a meter was opened.
    bool valid() const { return m_valid; }
    void markUnselected() { m_valid = false; }

    /// Fills the table from the stored defaults; valid when `defaultsPresent` (the setting
    /// that says default data points exist). Names are empty until the dialog opens.
    void loadDefaults(const DefaultSelection& defaults, bool defaultsPresent);
    /// Fills the table from the first row with `ids` (at most 128, the rest unused) and makes
    /// it valid, as a start command that names its channels does. Names stay empty.
    void setIds(const QList<qint32>& ids);

    /// The available list of the dialog, from `DataPoints` of every used file of the expanded
    /// list: sorted by id, ids below 1 and repeats dropped, named from the dictionary (ids
    /// 26602-26636 and 26801-26832 by the meter's user item label first). Ids 20438-20441 and
    /// 20638-20641 only for a technician. A file that does not open is left out silently.
    static QList<DataPointRow> available(const QList<LogFileEntry>& expandedFiles,
                                         SqliteDatabase& dictionary, bool technician,
                                         const QList<QPair<qint64, QString>>& userItemLabels);

    /// Opens the dialog on `available`: the table's ids found there move to the selected list
    /// in table order; ids the meters lack are dropped without a message.
    void openDialog(const QList<DataPointRow>& available);
    const QList<DataPointRow>& availableList() const { return m_available; }
    const QList<DataPointRow>& selectedList() const { return m_selected; }

    /// `count` points fit the table for `devices` meters: 128 for one meter, 63 for two.
    static bool fits(int count, int devices);
    /// Moves available row `row` to the selected list. Returns the refusal "Too many data
    /// points selected for {devices} device(s)." when full, else empty; an out-of-range row
    /// does nothing.
    QString add(int row, int devices);
    /// Moves every available row until the first refusal, which it returns.
    QString addAll(int devices);
    /// Moves selected row `row` back to the available list, which stays sorted by id.
    void remove(int row);
    void removeAll();

    /// "&OK": with nothing selected returns "There are no data points selected." and keeps
    /// the dialog; else writes the table from the selected list, makes it valid, clears the
    /// `Top query buffer` and returns empty.
    QString accept(TopQueryBuffer& buffer);
    /// "Res&tore": the last accepted table back into the two lists. Returns the failure text
    /// when none of its points is available, else empty.
    QString restore();
    /// "&Set Default": the selected list becomes the table, its copy, the run's `stored`
    /// defaults and the keys `Data_1` to `Data_128` of section `DefaultSetting` of
    /// `settingsFile`. Returns the message shown.
    QString setDefault(DefaultSelection& stored, const QString& settingsFile);

    /// The main window's status text: "Current selected data points. Total = {n}" or
    /// "No Data Points".
    QString statusText() const;

private:
    void writeTable();
    /// Moves the ids found in the available list to the selected one, in the given order.
    int selectIds(const QList<qint32>& ids);

    std::array<qint32, rows> m_ids{};
    std::array<QString, rows> m_names{};
    std::array<qint32, rows> m_accepted{};
    bool m_valid = false;
    QList<DataPointRow> m_available;
    QList<DataPointRow> m_selected;
};

} // namespace lorvane
