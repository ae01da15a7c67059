// SPDX-License-Identifier: GPL-3.0-or-later
#include "ViewRegistry.h"

#include "QueryContext.h"
#include "query/views/en50160/En50160View.h"
#include "query/views/flicker/FlickerView.h"
#include "query/views/input/InputView.h"
#include "query/views/limit/LimitView.h"
#include "query/views/pq/PqView.h"
#include "query/views/relay/RelayView.h"
#include "query/views/snapshot/SnapshotView.h"
#include "query/views/systemevent/SystemEventView.h"
#include "query/views/waveform/WaveformView.h"

namespace lorvane {

ViewRegistry::ViewRegistry()
{
    // One entry per view: {name, LogKind, description, function}. Keep the names lower case
    // and stable: scripts call them through `lorvane-cli query NAME`.
    m_views = {
        {QStringLiteral("snapshots"), LogKind::Snapshots,
         QStringLiteral("snapshot values of the selected points"),
         [](QueryContext& c, const ViewRequest& r) {
             return SnapshotView::run(c, r, LogKind::Snapshots);
         }},
        {QStringLiteral("demand"), LogKind::Demand, QStringLiteral("energy and demand values"),
         [](QueryContext& c, const ViewRequest& r) {
             return SnapshotView::run(c, r, LogKind::Demand);
         }},
        {QStringLiteral("limits"), LogKind::Limits,
         QStringLiteral("limit records with their data points"), singlePage(&LimitView::run)},
        {QStringLiteral("inputs"), LogKind::Inputs,
         QStringLiteral("input state changes with their settings"), singlePage(&InputView::run)},
        {QStringLiteral("relays"), LogKind::Relays,
         QStringLiteral("relay trips with their settings"), singlePage(&RelayView::run)},
        {QStringLiteral("flicker"), LogKind::Flicker,
         QStringLiteral("flicker maximum and minimum records"), singlePage(&FlickerView::run)},
        {QStringLiteral("waveform"), LogKind::Waveform,
         QStringLiteral("waveform and transient capture rows"), singlePage(&WaveformView::run)},
        {QStringLiteral("pq"), LogKind::PowerQuality,
         QStringLiteral("power quality records and their captures"), singlePage(&PqView::run)},
        {QStringLiteral("events"), LogKind::SystemEvent,
         QStringLiteral("system events of the meter"), singlePage(&SystemEventView::run)},
        {QStringLiteral("en50160"), LogKind::EN50160,
         QStringLiteral("EN 50160 test periods with the meters' verdicts"),
         singlePage(&En50160View::run)},
    };
}

const ViewRegistry& ViewRegistry::instance()
{
    static const ViewRegistry registry;
    return registry;
}

const ViewDefinition* ViewRegistry::find(const QString& name) const
{
    for (const ViewDefinition& view : m_views) {
        if (view.name == name)
            return &view;
    }
    return nullptr;
}

QStringList ViewRegistry::names() const
{
    QStringList out;
    for (const ViewDefinition& view : m_views)
        out << view.name;
    return out;
}

std::function<QList<ViewResult>(QueryContext&, const ViewRequest&)>
ViewRegistry::singlePage(std::function<ViewResult(QueryContext&)> view)
{
    return [view = std::move(view)](QueryContext& context, const ViewRequest&) {
        return QList<ViewResult>{view(context)};
    };
}

} // namespace lorvane
