// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendSession.h"

#include "AxisValueBox.h"
#include "IntervalGap.h"
#include "TrendColors.h"
#include "TrendTexts.h"
#include "TrendTime.h"
#include "TrendZoom.h"
#include "graph/SeriesPyramid.h"

namespace lorvane {

namespace {

/// The narrowest viewport of a tab, in its x unit: one second of meter time in the main tab,
/// a millisecond in a millisecond tab (which counts in seconds).
double minXSpan(const TrendView& view)
{
    return view.milliseconds ? 0.001 : TrendZoom::minViewportXSpan;
}

AxisRange& axisOf(TrendExtentsOfGraph& graph, TrendAxis axis)
{
    return axis == TrendAxis::Left ? graph.left : graph.right;
}

} // namespace

TrendSession::TrendSession(QList<quint32> colours)
    : m_colours(colours.isEmpty() ? TrendColors::defaults() : std::move(colours))
{
}

QString TrendSession::check(const TrendRequest& request)
{
    if (request.meters.isEmpty() || request.dataIds.isEmpty())
        return TrendTexts::noDataInput();
    if (!request.from.isValid() || !request.to.isValid() || request.to <= request.from)
        return TrendTexts::zeroSizedRange();
    if (request.from.daysTo(request.to) > maxRangeDays)
        return TrendTexts::rangeTooLarge();
    return {};
}

QString TrendSession::show(const TrendRequest& request, LoadProgress& progress, const Namer& namer)
{
    if (const QString refusal = check(request); !refusal.isEmpty())
        return refusal;
    TrendLoad load = TrendLoader::load(request, progress);
    const bool cancelled = load.cancelled;
    if (!take(std::move(load), namer))
        return TrendTexts::noPointsLoaded();
    m_cancelled = cancelled;
    return {};
}

bool TrendSession::take(TrendLoad load, const Namer& namer)
{
    if (load.sets.isEmpty())
        return false;
    double nonZero = std::numeric_limits<double>::quiet_NaN();
    for (int i = 0; i < load.sets.size(); ++i) {
        GraphSet& set = load.sets[i];
        set.colour = TrendColors::ofSet(m_colours, i);
        set.name = namer ? namer(set) : QString::number(set.dataId);
        if (std::isnan(nonZero) || set.smallestNonZero < nonZero)
            nonZero = set.smallestNonZero;
    }
    // Data with no non-zero value leaves the window's value as an earlier load found it.
    if (!std::isnan(nonZero))
        m_storedNonZero = nonZero;
    TrendView main;
    main.name = TrendTexts::mainViewName();
    main.sets = std::move(load.sets);
    fit(main, ExtentsRule::Default);
    m_views = {main};
    m_series = {{}};
    m_active = 0;
    m_cancelled = load.cancelled;
    return true;
}

void TrendSession::setActive(int index)
{
    if (index >= 0 && index < m_views.size())
        m_active = index;
}

AxisData TrendSession::axisData(TrendAxis axis) const
{
    return TrendExtents::of(view().sets, axis);
}

AxisRange TrendSession::dataSpan() const
{
    return TrendExtents::timeSpan(view().sets).value_or(AxisRange{});
}

void TrendSession::fit(TrendView& view, ExtentsRule rule) const
{
    const AxisRange x = TrendExtents::timeSpan(view.sets).value_or(AxisRange{});
    view.preview.x = view.viewport.x = x;
    for (TrendAxis axis : {TrendAxis::Left, TrendAxis::Right}) {
        const auto y =
            TrendExtents::apply(rule, TrendExtents::of(view.sets, axis), m_storedNonZero);
        if (!y)
            continue;
        axisOf(view.preview, axis) = *y;
        axisOf(view.viewport, axis) = *y;
    }
}

void TrendSession::applyExtents(ExtentsRule rule)
{
    if (!empty())
        fit(m_views[m_active], rule);
}

bool TrendSession::run(TrendCommand command)
{
    if (empty())
        return false;
    TrendView& v = m_views[m_active];
    const TrendExtentsOfGraph before = v.preview;
    const TrendExtentsOfGraph viewportBefore = v.viewport;
    std::optional<AxisRange> x;
    switch (command) {
    case TrendCommand::ViewZoomXIn:
        x = TrendZoom::viewportXIn(v.viewport.x, minXSpan(v));
        break;
    case TrendCommand::ViewZoomXOut:
        x = TrendZoom::viewportXOut(v.viewport.x, dataSpan().span());
        break;
    default:
        break;
    }
    if (x)
        v.viewport.x = *x;
    for (TrendAxis axis : {TrendAxis::Left, TrendAxis::Right}) {
        const AxisData data = axisData(axis);
        if (data.empty())
            continue;
        AxisRange& port = axisOf(v.viewport, axis);
        AxisRange& preview = axisOf(v.preview, axis);
        std::optional<AxisRange> y;
        switch (command) {
        case TrendCommand::ViewZoomYIn:
            y = TrendZoom::viewportYIn(port);
            break;
        case TrendCommand::ViewZoomYOut:
            y = TrendZoom::viewportYOut(port, data.maximum - data.minimum);
            break;
        case TrendCommand::PreviewZoomYIn:
            preview = TrendZoom::previewYIn(preview);
            break;
        case TrendCommand::PreviewZoomYOut:
            preview = TrendZoom::previewYOut(preview);
            break;
        case TrendCommand::PreviewYShiftUp:
        case TrendCommand::PreviewYShiftDown:
            preview = TrendZoom::previewYShift(preview, command == TrendCommand::PreviewYShiftUp);
            break;
        default:
            break;
        }
        if (y)
            port = *y;
    }
    return !(v.preview == before) || !(v.viewport == viewportBefore);
}

bool TrendSession::setAxisValue(TrendAxis axis, bool high, const QString& text)
{
    const std::optional<double> value = AxisValueBox::parse(text);
    if (empty() || !value)
        return false;
    AxisRange range = axisOf(m_views[m_active].viewport, axis);
    (high ? range.max : range.min) = *value;
    return setViewportY(axis, range);
}

bool TrendSession::setViewportY(TrendAxis axis, const AxisRange& range)
{
    if (empty() || !(range.min < range.max))
        return false;
    axisOf(m_views[m_active].viewport, axis) = range;
    return true;
}

bool TrendSession::setViewportX(const AxisRange& x)
{
    if (empty() || !(x.min <= x.max))
        return false;
    TrendView& v = m_views[m_active];
    const AxisRange data = dataSpan();
    const double widest = std::max(TrendZoom::maxViewportXShare * data.span(), minXSpan(v));
    const double span = std::clamp(x.span(), minXSpan(v), widest);
    const AxisRange fitted = TrendZoom::scaled(x, x.span() > 0 ? span / x.span() : 1);
    AxisRange result = x.span() > 0 ? fitted : AxisRange{x.min - span / 2, x.min + span / 2};
    if (result == v.viewport.x)
        return false;
    v.viewport.x = result;
    return true;
}

QString TrendSession::setGraphType(TrendGraphType type)
{
    if (empty())
        return {};
    TrendView& v = m_views[m_active];
    if (type == TrendGraphType::Bar &&
        !TrendBarRule::allows(TrendBarRule::pointsIn(v.sets, v.viewport.x)))
        return TrendTexts::tooManyBarPoints();
    v.type = type;
    return {};
}

void TrendSession::setIntervalGap(double days)
{
    if (empty() || m_views[m_active].intervalGapDays == days)
        return;
    m_views[m_active].intervalGapDays = std::max(0.0, days);
    m_series[m_active].clear();
}

void TrendSession::setColours(quint32 back, quint32 grid, quint32 text, quint32 value)
{
    if (empty())
        return;
    TrendView& v = m_views[m_active];
    v.backColour = back;
    v.gridColour = grid;
    v.textColour = text;
    v.valueColour = value;
}

void TrendSession::setAxis(int set, TrendAxis axis)
{
    if (empty() || set < 0 || set >= view().sets.size())
        return;
    TrendView& v = m_views[m_active];
    v.sets[set].axis = axis;
    // The axis that gained the set must take it in and the one that lost it may narrow to
    // what stays: both refit their y by the default rule.
    for (TrendAxis each : {TrendAxis::Left, TrendAxis::Right}) {
        const auto y = TrendExtents::apply(ExtentsRule::Default, TrendExtents::of(v.sets, each),
                                           m_storedNonZero);
        if (y)
            axisOf(v.preview, each) = axisOf(v.viewport, each) = *y;
    }
}

void TrendSession::setCursor(double x)
{
    if (!empty())
        m_views[m_active].cursor = x;
}

TrendSession::Capture TrendSession::step(bool forward, int focus)
{
    Capture capture;
    if (empty())
        return capture;
    TrendView& v = m_views[m_active];
    const double infinity = std::numeric_limits<double>::infinity();
    const double from = v.cursor.value_or(forward ? -infinity : infinity);
    capture.point =
        forward ? PointStep::next(v.sets, focus, from) : PointStep::previous(v.sets, focus, from);
    if (!capture.point) {
        capture.message = forward ? TrendTexts::noNextPoint() : TrendTexts::noPreviousPoint();
        return capture;
    }
    const GraphSet& set = v.sets.at(capture.point->set);
    capture.minimum = set.minimum;
    capture.maximum = set.maximum;
    v.cursor = capture.point->time;
    return capture;
}

QString TrendSession::generateMsView(const MsViewRequest& request)
{
    if (empty() || view().milliseconds)
        return TrendTexts::noMsPoints();
    std::optional<MsView> made = MsViewMaker::make(m_views.first().sets, request);
    if (!made)
        return TrendTexts::noMsPoints();
    TrendView ms;
    ms.name = TrendTexts::msViewName();
    ms.milliseconds = true;
    ms.msStart = made->start;
    ms.sets = std::move(made->sets);
    fit(ms, ExtentsRule::Default);
    m_views.append(ms);
    m_series.append(QList<std::shared_ptr<const PlotSeries>>{});
    m_active = int(m_views.size() - 1);
    return {};
}

std::optional<QString> TrendSession::closeQuestion(int index) const
{
    if (index <= 0 || index >= m_views.size())
        return std::nullopt;
    return TrendTexts::closeViewQuestion(m_views.at(index).name);
}

bool TrendSession::closeView(int index)
{
    if (!closeQuestion(index))
        return false;
    m_views.removeAt(index);
    m_series.removeAt(index);
    if (m_active >= index)
        m_active = std::max(0, m_active - 1);
    return true;
}

const QList<std::shared_ptr<const PlotSeries>>& TrendSession::series(int index) const
{
    QList<std::shared_ptr<const PlotSeries>>& cached = m_series[index];
    const TrendView& v = m_views.at(index);
    if (cached.size() != v.sets.size()) {
        cached.clear();
        for (const GraphSet& set : v.sets) {
            QVector<double> times, values;
            IntervalGap::apply(set.times, set.values, v.milliseconds ? 0 : v.intervalGapDays, times,
                               values);
            cached << std::make_shared<SeriesPyramid<double>>(times, values);
        }
    }
    return cached;
}

} // namespace lorvane
