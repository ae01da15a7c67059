// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/GraphSelection.h"
#include "query/engine/QueryContext.h"
#include "query/engine/SortState.h"
#include "query/engine/ViewResult.h"
#include "query/selection/ViewDispatch.h"
#include "store/LogKind.h"

#include <QList>
#include <QString>
#include <QVariantMap>
#include <array>
#include <map>
#include <memory>
#include <optional>

namespace lorvane {

class LoadProgress;
class SnapshotView;
class TopQueryBuffer;

/// The state of the one log grid window over the query engine: which kind it shows, the query
/// and page of each view button, the sort and type choice, and what &Graph, a double click or
/// a check mark leads to. A buffered press, a page already read and a new sort are shown from
/// the scratch tables: only a fresh press or a step past the last slice reads meter files.
class LogViewSession
{
public:
    /// The window each kind hands its rows to with &Graph.
    enum class GraphTarget
    {
        None,            ///< the kind hands over nothing
        TrendSetup,      ///< the trend / power graph set-up: the grid's data columns
        RelayTree,       ///< the relay logic tree of the selected relay record
        WaveformGraph,   ///< the waveform window on the selected capture
        PqGraph,         ///< the magnitude/duration graph on the query's PQ table
        ComplianceChart, ///< the EN 50160 chart of the compliance list
    };
    /// The hand-over of `logKind`. &Graph is enabled for a kind once a graph window has made
    /// itself known for it (GraphWindows).
    static GraphTarget graphTarget(LogKind logKind);

    /// What &Graph does for the current kind and row.
    struct GraphAction
    {
        enum class Kind
        {
            Unavailable, ///< the kind has no graph window yet: the button stays disabled
            Message,     ///< `message` tells why nothing opens
            Graph,       ///< open the graph window of the kind on `selection`
        };
        Kind kind = Kind::Unavailable;
        QString message;
        /// The rows' keys in grid order, the chosen row and the query's range text, from
        /// which the window makes its caption.
        GraphSelection selection;
    };

    /// A row bound to a graph by a check mark: the query it was read in and the row's keys,
    /// which stay valid whatever sort or page is shown later.
    struct BoundRecord
    {
        LogKind logKind = LogKind::DatabaseStatus;
        QueryNumbers numbers;
        QVariantMap keys;
        QStringList cells;
    };
    /// The number of check marks.
    static constexpr int checkMarks = 2;

    /// `base` gives the scratch database, the dictionary and the settings; its selection
    /// fields are replaced by each request.
    explicit LogViewSession(const QueryContext& base);
    /// The settings and databases the next load starts from (read when the load starts, so a
    /// change of the settings applies at once).
    void setBase(const QueryContext& base) { m_base = base; }
    ~LogViewSession();
    LogViewSession(const LogViewSession&) = delete;
    LogViewSession& operator=(const LogViewSession&) = delete;

    /// Takes the fields of a view button press; `buffer` (kept by the caller) receives the
    /// query numbers of each fresh load.
    void setRequest(const ViewDispatch::Request& request, TopQueryBuffer* buffer);
    /// `fresh` runs the kind's loaders; otherwise the buffered query of the pressing button is
    /// shown from its tables (a fresh load when the session no longer holds it). `progress`
    /// may be null. Throws StorageError or Fault; the state before the call then stays.
    void LoadQuery(bool fresh, LoadProgress* progress);
    /// `&Up` (-1) or `&Down` (+1); only the snapshot kinds have more than one page. True when
    /// the grids changed. Throws StorageError.
    bool step(int delta, LoadProgress* progress);
    /// A new sort (and for snapshots record type): the grids are refilled from the tables and
    /// the page stays. Throws StorageError or Fault.
    void setSort(const SortState& sort);
    /// The "Snapshot Type" / "Data Type" choice at `index` of `typeChoices`; refills.
    void setTypeChoice(int index);

    bool loaded() const { return m_current != nullptr; }
    LogKind logKind() const { return m_request.logKind; }
    /// The result shown; an empty one before the first load.
    const ViewResult& result() const;
    SortState sort() const;
    int typeChoice() const;
    bool canUp() const;
    bool canDown() const;

    /// The texts of the "Sort Item" list of the current kind (snapshots: "Date/Time" and each
    /// data column of the grid).
    QStringList sortItems() const;
    /// The caption of `Combo1`: "Snapshot Type" for snapshots and demand, else "Data Type".
    QString typeCaption() const;
    /// The entries of `Combo1`.
    QStringList typeChoices() const;
    /// What &Graph does with data row `row` of grid 0 selected (-1 none).
    GraphAction graph(int row) const;
    /// The grid a double click on data row `row` of grid `grid` opens: the captures of a PQ
    /// record, the PQ/waveform setting of a capture, an input or relay setting. Throws
    /// StorageError.
    std::optional<GridTable> rowDetail(int grid, int row) const;
    /// "Record {n}, {count}" for data row `row` (from 0) of the snapshot and flicker grids;
    /// empty for the other kinds.
    QString statusText(int grid, int row) const;
    /// The message of a check mark on a waveform or PQ view with no row selected; empty when
    /// a row is selected or the kind has no check marks.
    QString checkMessage(int row) const;
    /// Check mark `mark` set on data row `row` of grid 0 of a waveform or PQ view: the row is
    /// bound and true comes back. False, and nothing bound, for no row or another kind
    /// (`checkMessage` tells the user why).
    bool bind(int mark, int row);
    /// Check mark `mark` cleared.
    void release(int mark);
    /// What check mark `mark` holds; empty when it is not set. A new load clears both marks,
    /// since their rows belong to the query that was shown.
    std::optional<BoundRecord> bound(int mark) const;

    /// Waveform and PQ views have the two check marks.
    static bool hasCheckMarks(LogKind kind);

private:
    struct Entry;

    void loadFresh(LoadProgress* progress);
    void refill();
    Entry& current() const;

    QueryContext m_base;
    ViewDispatch::Request m_request;
    TopQueryBuffer* m_buffer = nullptr;
    std::map<int, std::unique_ptr<Entry>> m_entries;
    Entry* m_current = nullptr;
    std::array<std::optional<BoundRecord>, checkMarks> m_bound;
};

} // namespace lorvane
