// SPDX-License-Identifier: GPL-3.0-or-later
#include "LogViewSession.h"

#include "LogViewTexts.h"
#include "TrendHandOver.h"
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "platform/UserText.h"
#include "query/engine/LogFileList.h"
#include "query/engine/SortOptions.h"
#include "query/selection/TopQueryBuffer.h"
#include "query/views/en50160/En50160View.h"
#include "query/views/flicker/FlickerView.h"
#include "query/views/input/InputView.h"
#include "query/views/limit/LimitView.h"
#include "query/views/pq/PqGrid.h"
#include "query/views/pq/PqView.h"
#include "query/views/relay/RelayView.h"
#include "query/views/setup/SetupRecordViews.h"
#include "query/views/snapshot/SnapshotView.h"
#include "query/views/status/DatabaseStatusView.h"
#include "query/views/systemevent/SystemEventView.h"
#include "query/views/waveform/WaveformGrid.h"
#include "query/views/waveform/WaveformView.h"
#include "store/LogKind.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

namespace {

using Run = ViewResult (*)(QueryContext&);
using Grids = QList<GridTable> (*)(QueryContext&, const QueryNumbers&);

/// The loader and the table filler of a single-page kind.
struct KindRoad
{
    Run run = nullptr;
    Grids grids = nullptr;
};

KindRoad roadOf(LogKind kind)
{
    switch (kind) {
    case LogKind::Limits:
        return {&LimitView::run, &LimitView::grids};
    case LogKind::Inputs:
        return {&InputView::run, &InputView::grids};
    case LogKind::Relays:
        return {&RelayView::run, &RelayView::grids};
    case LogKind::Flicker:
        return {&FlickerView::run, &FlickerView::grids};
    case LogKind::Waveform:
        return {&WaveformView::run, &WaveformView::grids};
    case LogKind::PowerQuality:
        return {&PqView::run, &PqView::grids};
    case LogKind::SystemEvent:
        return {&SystemEventView::run, &SystemEventView::grids};
    case LogKind::EN50160:
        return {&En50160View::run, &En50160View::grids};
    default:
        return {};
    }
}

bool isSnapshotKind(LogKind kind)
{
    return kind == LogKind::Snapshots || kind == LogKind::Demand;
}

/// The columns of a snapshot grid before its `Dev_Data` columns.
constexpr int snapshotFixedColumns = 4;

/// Points the context's progress at `progress` for one load and back to none after it.
class ProgressScope
{
public:
    ProgressScope(QueryContext& context, LoadProgress* progress) : m_context(context)
    {
        m_context.progress = progress ? progress : &m_silent;
    }
    ~ProgressScope() { m_context.progress = nullptr; }
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;

private:
    QueryContext& m_context;
    SilentProgress m_silent;
};

QString withStop(const QString& text)
{
    return text + QLatin1Char('.');
}

} // namespace

/// One view button's query: its own context (the snapshot view keeps a reference to it), the
/// result shown, and the user's sort and type choice.
struct LogViewSession::Entry
{
    LogKind logKind = LogKind::DatabaseStatus;
    int button = 0;
    std::unique_ptr<QueryContext> context;
    std::unique_ptr<SnapshotView> snapshots;
    ViewResult result;
    SortState sort;
    int typeChoice = 0;
    /// The direction the slices are read in; the sort may show a page the other way round.
    bool loadDescending = false;

    /// Puts the sort and type choice into the context for a fill from the tables; the load
    /// fields come back on destruction so that a later slice is read unfiltered and in the
    /// direction of the first.
    class Presentation
    {
    public:
        explicit Presentation(Entry& entry) : m_entry(entry)
        {
            QueryContext& c = *entry.context;
            c.descending = entry.sort.descending;
            c.sortColumn = entry.sortColumn();
            c.typeFilter = entry.typeFilter();
            c.groupByType = isSnapshotKind(entry.logKind) && entry.sort.recordType == 1;
        }
        ~Presentation()
        {
            QueryContext& c = *m_entry.context;
            c.descending = m_entry.loadDescending;
            c.sortColumn.clear();
            c.typeFilter = 0;
            c.groupByType = false;
        }
        Presentation(const Presentation&) = delete;
        Presentation& operator=(const Presentation&) = delete;

    private:
        Entry& m_entry;
    };

    QStringList dataColumns() const
    {
        if (!isSnapshotKind(logKind) || result.grids.isEmpty())
            return {};
        return result.grids.first().columns.mid(snapshotFixedColumns);
    }

    /// The context's sort column: a `Dev_Data` key or "Record Type" for snapshots, the item's
    /// text for the other kinds, empty for Date/Time.
    QString sortColumn() const
    {
        if (isSnapshotKind(logKind))
            return sort.item > 0 ? dataColumns().value(sort.item - 1) : QString();
        if (sort.item <= 0)
            return {};
        return SortOptions::itemTexts(logKind).value(sort.item);
    }

    /// The snapshot `TypeID` of the sort state or the waveform data type. The grouping list
    /// is the list of type names itself: 0 all, 1 grouped, and from 2 ("Log 1") on the
    /// position is the `TypeID` the meter writes.
    int typeFilter() const
    {
        if (isSnapshotKind(logKind))
            return sort.recordType >= 2 ? sort.recordType : 0;
        return logKind == LogKind::Waveform ? typeChoice : 0;
    }
};

LogViewSession::LogViewSession(const QueryContext& base) : m_base(base)
{
}

LogViewSession::~LogViewSession() = default;

void LogViewSession::setRequest(const ViewDispatch::Request& request, TopQueryBuffer* buffer)
{
    m_request = request;
    m_buffer = buffer;
}

LogViewSession::Entry& LogViewSession::current() const
{
    if (!m_current)
        throw Fault(Fault::Kind::Other, userText("406000", "No view has been loaded"),
                    QStringLiteral("LoadQuery"), QString());
    return *m_current;
}

const ViewResult& LogViewSession::result() const
{
    static const ViewResult none;
    return m_current ? m_current->result : none;
}

SortState LogViewSession::sort() const
{
    return m_current ? m_current->sort : SortState{};
}

int LogViewSession::typeChoice() const
{
    if (!m_current)
        return 0;
    if (isSnapshotKind(m_current->logKind))
        return m_current->sort.recordType >= 2 ? m_current->sort.recordType - 1 : 0;
    return m_current->typeChoice;
}

void LogViewSession::LoadQuery(bool fresh, LoadProgress* progress)
{
    const int button = m_request.button;
    const auto held = m_entries.find(button);
    const bool buffered = !fresh && m_buffer && m_buffer->holds(button) &&
                          held != m_entries.end() && held->second->logKind == m_request.logKind &&
                          held->second->result.numbers.query == m_buffer->row(button).queryIndex;
    if (!buffered) {
        loadFresh(progress);
    } else {
        Entry* previous = m_current;
        m_current = held->second.get();
        try {
            refill();
        } catch (...) {
            m_current = previous;
            throw;
        }
    }
    // The marks named rows of the query shown before; they are not carried into another.
    for (std::optional<BoundRecord>& record : m_bound)
        record.reset();
}

void LogViewSession::loadFresh(LoadProgress* progress)
{
    auto entry = std::make_unique<Entry>();
    entry->logKind = m_request.logKind;
    entry->button = m_request.button;
    entry->context = std::make_unique<QueryContext>(m_base);
    QueryContext& c = *entry->context;
    c.files = m_request.files;
    c.dataIds.clear();
    for (qint32 id : m_request.itemIds) {
        if (id > 0)
            c.dataIds << id;
    }
    c.start = m_request.start;
    c.end = m_request.end;
    c.descending = m_request.sortDirection == 1;
    c.sortColumn.clear();
    c.typeFilter = 0;
    entry->loadDescending = c.descending;
    entry->sort.descending = c.descending;

    const LogKind kind = entry->logKind;
    {
        ProgressScope scope(c, progress);
        if (kind == LogKind::DatabaseStatus) {
            entry->result.logKind = kind;
            entry->result.grids = DatabaseStatusView::run(c.files);
        } else if (isSnapshotKind(kind)) {
            entry->snapshots = std::make_unique<SnapshotView>(c, kind);
            entry->result = entry->snapshots->load();
        } else if (const KindRoad road = roadOf(kind); road.run) {
            entry->result = road.run(c);
        } else {
            throw Fault(Fault::Kind::Other,
                        userText("406001", "This view is not available") + QStringLiteral(": ") +
                            LogViewTexts::viewName(kind),
                        QStringLiteral("LoadQuery"), QString());
        }
    }
    // A cancelled load is shown but not kept for the button: the next press reads again.
    if (m_buffer && kind != LogKind::DatabaseStatus && !entry->result.cancelled &&
        entry->result.numbers.query > 0) {
        m_buffer->setRow(entry->button, {entry->result.numbers.query, entry->result.numbers.slice,
                                         c.start, c.end, 0});
    }
    Entry* kept = entry.get();
    m_entries[entry->button] = std::move(entry);
    m_current = kept;
}

void LogViewSession::refill()
{
    Entry& entry = current();
    if (entry.logKind == LogKind::DatabaseStatus)
        return;
    Entry::Presentation presentation(entry);
    if (entry.snapshots) {
        entry.result = entry.snapshots->show();
        return;
    }
    entry.result.grids = roadOf(entry.logKind).grids(*entry.context, entry.result.numbers);
}

bool LogViewSession::step(int delta, LoadProgress* progress)
{
    Entry& entry = current();
    if (!entry.snapshots)
        return false;
    const int before = entry.snapshots->pager().page();
    const int pagesBefore = entry.snapshots->pager().pages();
    const bool couldDown = entry.snapshots->pager().canDown();
    {
        ProgressScope scope(*entry.context, progress);
        entry.snapshots->step(delta);
    }
    // The slices are read in the load's direction and unfiltered; the page is then shown in
    // the user's sort.
    refill();
    return entry.snapshots->pager().page() != before ||
           entry.snapshots->pager().pages() != pagesBefore ||
           entry.snapshots->pager().canDown() != couldDown;
}

void LogViewSession::setSort(const SortState& sort)
{
    Entry& entry = current();
    const SortState before = entry.sort;
    entry.sort = sort;
    try {
        refill();
    } catch (...) {
        entry.sort = before;
        refill();
        throw;
    }
}

void LogViewSession::setTypeChoice(int index)
{
    Entry& entry = current();
    if (isSnapshotKind(entry.logKind)) {
        SortState sort = entry.sort;
        sort.recordType = index > 0 ? index + 1 : 0;
        setSort(sort);
        return;
    }
    entry.typeChoice = index;
    refill();
}

bool LogViewSession::canUp() const
{
    return m_current && m_current->snapshots && m_current->snapshots->pager().canUp();
}

bool LogViewSession::canDown() const
{
    return m_current && m_current->snapshots && m_current->snapshots->pager().canDown();
}

QStringList LogViewSession::sortItems() const
{
    if (!m_current)
        return {};
    return SortOptions::itemTexts(m_current->logKind, m_current->dataColumns());
}

QString LogViewSession::typeCaption() const
{
    return isSnapshotKind(logKind()) ? userText("406002", "Snapshot Type")
                                     : userText("406003", "Data Type");
}

QStringList LogViewSession::typeChoices() const
{
    const LogKind kind = logKind();
    if (isSnapshotKind(kind))
        return QStringList{userText("406004", "User Defined")} +
               SortOptions::snapshotGroupings().mid(2);
    if (kind == LogKind::Waveform)
        return WaveformGrid::typeNames();
    return {};
}

LogViewSession::GraphTarget LogViewSession::graphTarget(LogKind logKind)
{
    switch (logKind) {
    case LogKind::Snapshots:
    case LogKind::Demand:
    case LogKind::Flicker:
    case LogKind::SystemEvent:
        return GraphTarget::TrendSetup;
    case LogKind::Relays:
        return GraphTarget::RelayTree;
    case LogKind::Waveform:
        return GraphTarget::WaveformGraph;
    case LogKind::PowerQuality:
        return GraphTarget::PqGraph;
    case LogKind::EN50160:
        return GraphTarget::ComplianceChart;
    default:
        return GraphTarget::None;
    }
}

LogViewSession::GraphAction LogViewSession::graph(int row) const
{
    GraphAction action;
    if (!m_current)
        return action;
    const Entry& entry = *m_current;
    const GridTable none;
    const GridTable& grid = entry.result.grids.isEmpty() ? none : entry.result.grids.first();
    const bool empty = grid.rows.isEmpty();
    const bool selected = row >= 0 && row < grid.rows.size();
    auto message = [&action](const QString& text) {
        action.kind = GraphAction::Kind::Message;
        action.message = withStop(text);
    };
    // A graph of the chosen row: the window steps through the grid's rows from it, and makes
    // its caption from the record it shows and the query's range, so that it follows P&rev and
    // &Next.
    auto chosenRow = [&](const QString& noRows, const QString& noChoice) {
        if (empty) {
            message(noRows);
        } else if (!selected) {
            message(noChoice);
        } else {
            action.kind = GraphAction::Kind::Graph;
            action.selection.logKind = int(entry.logKind);
            action.selection.numbers = entry.result.numbers;
            action.selection.rows = grid.rowKeys;
            action.selection.position = row;
            action.selection.caption = entry.result.rangeText;
        }
    };
    switch (entry.logKind) {
    case LogKind::Waveform:
        chosenRow(userText("406010", "There are no waveforms"),
                  userText("406011", "Please select a waveform to graph"));
        break;
    case LogKind::PowerQuality:
        // The graph draws every event of the query, whichever row is chosen; with none it
        // shows the envelope alone.
        action.kind = GraphAction::Kind::Graph;
        action.selection.logKind = int(entry.logKind);
        action.selection.numbers = entry.result.numbers;
        action.selection.rows = grid.rowKeys;
        action.selection.position = selected ? row : 0;
        action.selection.caption = entry.result.rangeText;
        break;
    case LogKind::Relays:
        chosenRow(userText("406012", "There are no relays"),
                  userText("406014", "Please select a relay record  to graph"));
        break;
    case LogKind::Snapshots:
    case LogKind::Demand:
        if (empty) {
            message(userText("406013", "There are no data to graph"));
        } else {
            action.kind = GraphAction::Kind::Graph;
            action.selection.logKind = int(entry.logKind);
            action.selection.numbers = entry.result.numbers;
            action.selection.rows = TrendHandOver::columns(*entry.context, entry.logKind);
            action.selection.caption = entry.result.rangeText;
        }
        break;
    case LogKind::Flicker:
    case LogKind::SystemEvent:
        // Their trend set-up is not built yet: only the empty case is answered.
        if (empty)
            message(userText("406013", "There are no data to graph"));
        break;
    default:
        break;
    }
    return action;
}

std::optional<GridTable> LogViewSession::rowDetail(int grid, int row) const
{
    if (!m_current || grid < 0 || grid >= m_current->result.grids.size())
        return std::nullopt;
    const Entry& entry = *m_current;
    const GridTable& table = entry.result.grids.at(grid);
    if (row < 0 || row >= table.rowKeys.size())
        return std::nullopt;
    const QVariantMap& keys = table.rowKeys.at(row);
    auto key = [&keys](const char* name) {
        return keys.value(QString::fromLatin1(name)).toLongLong();
    };
    SqliteDatabase& db = entry.context->scratch->database();
    const QueryNumbers& numbers = entry.result.numbers;
    switch (entry.logKind) {
    case LogKind::PowerQuality:
        if (grid == 0)
            return PqGrid::listWaveforms(db, numbers, keys, entry.sort.descending,
                                         entry.context->dataFormat);
        return SetupRecordViews::pqWaveSetting(db, numbers, key("DeviceIndex"), key("Index"));
    case LogKind::Waveform:
        return SetupRecordViews::pqWaveSetting(db, numbers, key("DeviceIndex"), key("Index"));
    case LogKind::Inputs:
        if (grid != 0)
            return std::nullopt;
        return SetupRecordViews::inputSetting(db, numbers, key("DeviceIndex"), key("Index"),
                                              key("ModuleIndex"), key("InputIndex"));
    case LogKind::Relays: {
        if (grid != 0)
            return std::nullopt;
        // Rows carry the 1-based position of their file in the query's expanded list.
        const qint64 device = key("DeviceIndex");
        const QList<LogFileEntry> files =
            LogFileList::expand(entry.context->files, int(LogKind::Relays));
        const LogFileEntry* file = LogFileList::fileOfDevice(files, device);
        const int deviceType = file ? file->deviceTypeId : 0;
        return SetupRecordViews::relaySetting(db, numbers, device, key("Index"), key("ModuleIndex"),
                                              key("RelayIndex"), deviceType);
    }
    default:
        return std::nullopt;
    }
}

QString LogViewSession::statusText(int grid, int row) const
{
    if (!m_current || grid < 0 || grid >= m_current->result.grids.size())
        return {};
    const LogKind kind = m_current->logKind;
    if (!isSnapshotKind(kind) && kind != LogKind::Flicker)
        return {};
    const int count = int(m_current->result.grids.at(grid).rows.size());
    if (row < 0 || row >= count)
        return {};
    return userText("406020", "Record") + QLatin1Char(' ') + QString::number(row + 1) +
           QStringLiteral(", ") + QString::number(count);
}

bool LogViewSession::hasCheckMarks(LogKind kind)
{
    return kind == LogKind::Waveform || kind == LogKind::PowerQuality;
}

QString LogViewSession::checkMessage(int row) const
{
    if (row >= 0)
        return {};
    switch (logKind()) {
    case LogKind::Waveform:
        return withStop(userText("406021", "Please select a waveform record"));
    case LogKind::PowerQuality:
        return withStop(userText("406022", "Please select a PQ record"));
    default:
        return {};
    }
}

bool LogViewSession::bind(int mark, int row)
{
    if (!m_current || mark < 0 || mark >= checkMarks || !hasCheckMarks(m_current->logKind))
        return false;
    const Entry& entry = *m_current;
    if (entry.result.grids.isEmpty())
        return false;
    const GridTable& grid = entry.result.grids.first();
    if (row < 0 || row >= grid.rows.size())
        return false;
    BoundRecord record;
    record.logKind = entry.logKind;
    record.numbers = entry.result.numbers;
    record.keys = grid.rowKeys.value(row);
    record.cells = grid.rows.at(row);
    m_bound[size_t(mark)] = std::move(record);
    return true;
}

void LogViewSession::release(int mark)
{
    if (mark >= 0 && mark < checkMarks)
        m_bound[size_t(mark)].reset();
}

std::optional<LogViewSession::BoundRecord> LogViewSession::bound(int mark) const
{
    if (mark < 0 || mark >= checkMarks)
        return std::nullopt;
    return m_bound[size_t(mark)];
}

} // namespace lorvane
