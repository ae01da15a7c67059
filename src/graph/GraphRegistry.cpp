// SPDX-License-Identifier: GPL-3.0-or-later
#include "GraphRegistry.h"

#include "query/engine/ViewRegistry.h"
#include "store/LogKind.h"

namespace lorvane {

GraphRegistry::GraphRegistry()
{
    // One entry per graph: {LogKind, name, description}. The names stay stable: scripts use
    // them.
    m_graphs = {
        {int(LogKind::Waveform), QStringLiteral("waveform"),
         QStringLiteral("capture channels over time with their statistics and spectra")},
        {int(LogKind::Snapshots), QStringLiteral("trend"),
         QStringLiteral("snapshot values over time, a preview over the whole span above a zoomed "
                        "viewport")},
        {int(LogKind::Demand), QStringLiteral("demand-trend"),
         QStringLiteral("energy and demand values over time, as the trend")},
        {int(LogKind::Snapshots), QStringLiteral("power-graph"),
         QStringLiteral("up to six snapshot items round a dial or over time (circular, XY)")},
        {int(LogKind::Demand), QStringLiteral("power-graph-demand"),
         QStringLiteral("up to six demand items round a dial or over time (circular, XY)")},
        {int(LogKind::PowerQuality), QStringLiteral("pq"),
         QStringLiteral("power quality events by magnitude and duration against an envelope, "
                        "their counts in 3D and the magnitude histogram")},
        {int(LogKind::Relays), QStringLiteral("relay-logic"),
         QStringLiteral("a relay record's path from limits and inputs through gates and delays "
                        "to the trip")},
    };
}

const GraphRegistry& GraphRegistry::instance()
{
    static const GraphRegistry registry;
    return registry;
}

const GraphDefinition* GraphRegistry::find(int logKind) const
{
    for (const GraphDefinition& graph : m_graphs)
        if (graph.logKind == logKind)
            return &graph;
    return nullptr;
}

const GraphDefinition* GraphRegistry::find(const QString& name) const
{
    for (const GraphDefinition& graph : m_graphs)
        if (graph.name == name)
            return &graph;
    return nullptr;
}

const ViewDefinition* GraphRegistry::rowsView(const GraphDefinition& graph)
{
    for (const ViewDefinition& view : ViewRegistry::instance().views())
        if (int(view.logKind) == graph.logKind)
            return &view;
    return nullptr;
}

QStringList GraphRegistry::names() const
{
    QStringList out;
    for (const GraphDefinition& graph : m_graphs)
        out << graph.name;
    return out;
}

} // namespace lorvane
