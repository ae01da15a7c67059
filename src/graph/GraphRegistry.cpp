// SPDX-License-Identifier: GPL-3.0-or-later
#include "GraphRegistry.h"

#include "store/LogKind.h"

namespace lorvane {

GraphRegistry::GraphRegistry()
{
    // One entry per graph: {LogKind, name, description}. The names stay stable: scripts use
    // them.
    m_graphs = {
        {int(LogKind::Waveform), QStringLiteral("waveform"),
         QStringLiteral("capture channels over time with their statistics and spectra")},
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

QStringList GraphRegistry::names() const
{
    QStringList out;
    for (const GraphDefinition& graph : m_graphs)
        out << graph.name;
    return out;
}

} // namespace lorvane
