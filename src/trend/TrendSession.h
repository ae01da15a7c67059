// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MsView.h"
#include "PointStep.h"
#include "TrendExtents.h"
#include "TrendLoader.h"
#include "TrendView.h"
#include "graph/PlotSeries.h"

#include <functional>
#include <memory>

namespace lorvane {

/// The buttons of the trend window that step an extent.
enum class TrendCommand
{
    ViewZoomXIn,
    ViewZoomXOut,
    ViewZoomYIn,
    ViewZoomYOut,
    PreviewZoomYIn,
    PreviewZoomYOut,
    PreviewYShiftUp,
    PreviewYShiftDown,
};

/// The trend window without its widgets: the loaded sets, the tabs with their extents, and
/// every rule a button or box of the window follows. The window shows what it answers and
/// passes the user's presses on; the command line and the tests drive it alike.
class TrendSession
{
public:
    /// The name of a set as the window lists it (the dictionary's label of its data id).
    using Namer = std::function<QString(const GraphSet& set)>;
    /// What the data capture panel shows after a step.
    struct Capture
    {
        std::optional<FoundPoint> point;
        double minimum = 0;
        double maximum = 0;
        QString message; ///< "No Next Point." / "No Previous Point." when nothing was found
    };

    /// The longest range a trend loads: ten years of meter time.
    static constexpr qint64 maxRangeDays = 3660;

    explicit TrendSession(QList<quint32> colours = {});

    /// The refusal of a request before anything is read ("No Data Input", the range checks);
    /// empty when it may be loaded.
    static QString check(const TrendRequest& request);
    /// Loads the request and makes the main tab with the default extents. Returns the message
    /// to show ("No Points Loaded." ...) or empty. A cancelled load keeps what it read; a
    /// failing one throws (StorageError, Fault) and leaves the session as it was.
    QString show(const TrendRequest& request, LoadProgress& progress, const Namer& namer = {});
    /// The main tab over `load` (what `show` does after the read). False when it holds no set.
    bool take(TrendLoad load, const Namer& namer = {});
    bool cancelled() const { return m_cancelled; }

    const QList<TrendView>& views() const { return m_views; }
    int active() const { return m_active; }
    void setActive(int index);
    const TrendView& view() const { return m_views.at(m_active); }
    bool empty() const { return m_views.isEmpty(); }
    /// The window's smallest non-zero value, kept across loads that have none.
    double storedNonZero() const { return m_storedNonZero; }

    /// The data of one axis of the active tab.
    AxisData axisData(TrendAxis axis) const;
    /// The x span of the active tab's data.
    AxisRange dataSpan() const;

    /// `CmdDefaultExtents`, `CmdNonZeroExtents`, `CmdIntelligentExtents`: x of both graphs
    /// back to the data's span, y of each axis by the rule (an axis without data keeps its y).
    void applyExtents(ExtentsRule rule);
    /// A zoom or shift button; false when its limit refused it.
    bool run(TrendCommand command);
    /// One of the four value boxes of the viewport (`valAxisRange`); false, nothing changed,
    /// for a text the box refuses or a low not below the high.
    bool setAxisValue(TrendAxis axis, bool high, const QString& text);
    /// The viewport's y of an axis from the extents dialog; false for an empty range.
    bool setViewportY(TrendAxis axis, const AxisRange& range);
    /// The viewport's x from the Preview's window or `CmdSetRange`: kept at least one second
    /// wide and within twice the data's span about it; false when it stays.
    bool setViewportX(const AxisRange& x);
    /// The graph type; the refusal text of the bar rule, or empty.
    QString setGraphType(TrendGraphType type);
    void setIntervalGap(double days);
    void setColours(quint32 back, quint32 grid, quint32 text, quint32 value);
    /// Moves a set of the active tab to the other axis (Regraph draws it there).
    void setAxis(int set, TrendAxis axis);

    void setCursor(double x);
    /// "Next >" / "< Previous" from the cursor on all sets (`focus` -1) or one.
    Capture step(bool forward, int focus);
    /// `GenerateMsView`: a new tab, made active; the refusal text or empty.
    QString generateMsView(const MsViewRequest& request);
    /// The question before closing tab `index`; nothing for the main tab, which never closes.
    std::optional<QString> closeQuestion(int index) const;
    bool closeView(int index);

    /// The drawn series of tab `index`, one per set in order: level-of-detail series over the
    /// columns, broken at the interval gap. Made once per tab and gap.
    const QList<std::shared_ptr<const PlotSeries>>& series(int index) const;

private:
    void fit(TrendView& view, ExtentsRule rule) const;
    QList<quint32> m_colours;
    QList<TrendView> m_views;
    int m_active = 0;
    double m_storedNonZero = 0;
    bool m_cancelled = false;
    mutable QList<QList<std::shared_ptr<const PlotSeries>>> m_series;
};

} // namespace lorvane
