// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ChartMark.h"
#include "ZoomStep.h"
#include "graph/PlotSeries.h"
#include "graph/PointHit.h"
#include "graph/ZoomState.h"

#include <QChartView>
#include <QList>
#include <functional>
#include <memory>
#include <optional>

class QCategoryAxis;
class QMenu;
class QRubberBand;
class QXYSeries;

namespace lorvane {

/// The chart of every graph window: series drawn through their level of detail (about two
/// points a pixel column, refilled at every change of range or size), axes ticked at round
/// steps, and one way to interact: a drag zooms (rubber band), the wheel zooms about the
/// pointer, a middle-button or Shift drag pans, Backspace undoes a zoom and Home resets it,
/// a click places the cursor with a read-out of every series, the pointer resting near a point
/// shows its values, and a right click opens the menu that the window fills.
///
/// A series is drawn against the left y axis or against a second one on the right (volts and
/// amps over one time axis, counts and a cumulative percentage). The zoom lives in the left
/// axis' values; the right axis follows it: it shows the same share of its own bounds as the
/// left one shows of its bounds, so a vertical zoom, a pan, undo and reset move both, each in
/// its own scale, and both always frame the same part of the plot.
class ChartCanvas : public QChartView
{
    Q_OBJECT

public:
    enum class ZoomAxes
    {
        Horizontal,
        Vertical,
        Both,
    };

    /// The y axis a series is drawn against.
    enum class YAxis
    {
        Left,
        Right,
    };

    /// The chart's margins around axes and plot.
    static constexpr QMargins margins{4, 4, 4, 4};

    explicit ChartCanvas(QWidget* parent = nullptr);
    ~ChartCanvas() override;

    /// x as numbers, or as wall-clock milliseconds (meter time, no zone).
    void setWallClockX(bool wallClock);
    bool wallClockX() const { return m_wallClock; }
    void setTitles(const QString& title, const QString& xTitle, const QString& yTitle);
    void setRightTitle(const QString& title);
    /// A unit appended to the values of the axis' series in the default point text ("230 V").
    void setUnit(YAxis axis, const QString& unit);
    /// Draws `data` with the look of `look` (a line or scatter series; the canvas owns it)
    /// against the left or the right y axis; the right axis shows once a series uses it.
    void addSeries(QXYSeries* look, std::shared_ptr<const PlotSeries> data,
                   YAxis axis = YAxis::Left);
    void clearSeries();
    int seriesCount() const { return static_cast<int>(m_series.size()); }
    /// Points the chart holds now, over all series.
    int pointsShown() const;

    /// Zooms are kept inside `bounds` (y: the left axis); the view becomes the bounds and the
    /// undo steps go.
    void setBounds(const Viewport& bounds);
    /// The right axis' range when the left one shows its bounds (unset: the left bounds).
    void setRightBounds(const AxisRange& bounds);
    /// The right axis' range shown now.
    AxisRange rightView() const;
    bool hasRightAxis() const { return m_rightUsed; }
    /// Bounds from the series (DataBounds), x over all, y for each axis from its own series;
    /// false when there is no data.
    bool fitToData();
    /// Limits of the view; the y span is in left axis values.
    void setLimits(const ZoomState::Limits& limits);
    void setZoomAxes(ZoomAxes axes) { m_zoomAxes = axes; }
    const ZoomState& zoom() const { return m_zoom; }
    /// Applies a zoom change: a window's command or a step another chart made. With `xOnly`
    /// this chart keeps its own y range. True when the view changed.
    bool apply(const ZoomStep& step, bool xOnly = false);
    /// Show or hide the x tick labels (strips above another share its labels).
    void setXLabelsVisible(bool visible);

    /// Vertical marks drawn over the plot (those outside the view are left out).
    void setMarks(const QList<ChartMark>& marks);
    const QList<ChartMark>& marks() const { return m_marks; }

    /// Cursor at `x` (nothing: no cursor).
    void setCursorX(std::optional<double> x);
    std::optional<double> cursorX() const { return m_cursor; }
    /// Lines of the cursor read-out: each series' name and the value of its sample nearest to
    /// the cursor, in the values of the series' own axis.
    QStringList cursorReadout() const;
    /// The text shown for a point of a series under the pointer or at the cursor; the default
    /// is "name: x, y".
    void setValueText(std::function<QString(const QString& name, const QPointF& value)> text);
    /// Fills the right-click menu with the window's entries for a click at `value`.
    void setContextMenuHook(std::function<void(QMenu* menu, const QPointF& value)> hook);

    /// Chart values (y of `axis`) at a widget position, and back.
    QPointF valueAt(const QPointF& position, YAxis axis = YAxis::Left) const;
    QPointF positionOf(const QPointF& value, YAxis axis = YAxis::Left) const;
    /// Hover as the pointer at `position` (a widget position): the point shown, if any.
    std::optional<PointHit> hoverAt(const QPointF& position);
    /// The text of the point under the pointer; empty when none.
    const QString& hoverText() const { return m_hoverText; }

signals:
    /// The user changed the zoom (the view is already shown).
    void zoomed(const lorvane::ZoomStep& step);
    void cursorMoved(double x);

protected:
    void drawForeground(QPainter* painter, const QRectF& rect) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    struct Bound
    {
        QXYSeries* look = nullptr;
        std::shared_ptr<const PlotSeries> data;
        YAxis axis = YAxis::Left;
    };

    void userStep(const ZoomStep& step);
    void showView();
    void fillTicks(QCategoryAxis* axis, const AxisRange& range, bool wallClock, int maxTicks);
    QString pointText(const Bound& bound, const QPointF& value) const;
    /// A y of the right axis in left axis values, and back.
    double leftOf(double rightY) const;
    double rightOf(double leftY) const;
    QRect bandFor(const QPoint& from, const QPoint& to) const;
    /// Chart coordinates of a chart value.
    QPointF plotPointOf(const QPointF& value) const;

    QCategoryAxis* m_x = nullptr;
    QCategoryAxis* m_y = nullptr;
    QCategoryAxis* m_right = nullptr;
    bool m_rightUsed = false;
    std::optional<AxisRange> m_rightBounds;
    QString m_units[2];
    QList<Bound> m_series;
    ZoomState m_zoom;
    ZoomAxes m_zoomAxes = ZoomAxes::Horizontal;
    bool m_wallClock = false;
    std::optional<double> m_cursor;
    QList<ChartMark> m_marks;
    std::function<QString(const QString&, const QPointF&)> m_valueText;
    std::function<void(QMenu*, const QPointF&)> m_menuHook;
    QRubberBand* m_band = nullptr;
    std::optional<QPoint> m_pressed;
    std::optional<QPoint> m_panFrom;
    std::optional<PointHit> m_hover;
    QString m_hoverText;
    int m_filledColumns = 0;
};

} // namespace lorvane
