// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace lorvane {

struct ViewDefinition;

/// One kind of graph: the log kind (`LogKind`) whose rows it draws, and the stable lower-case
/// name by which scripts and the command line call it.
struct GraphDefinition
{
    int logKind = 0;
    QString name;
    QString description;
};

/// The graphs by log kind, beside the views of ViewRegistry: &Graph of the log grid asks it
/// which graph a kind has, and the windows' factories (GraphWindows) accept only a kind that
/// is listed here. Each graph adds itself with one entry in the table of GraphRegistry.cpp.
class GraphRegistry
{
public:
    static const GraphRegistry& instance();

    /// The graph of `logKind`, or nullptr.
    const GraphDefinition* find(int logKind) const;
    /// The graph of that name (case-sensitive), or nullptr.
    const GraphDefinition* find(const QString& name) const;
    /// The names in table order.
    QStringList names() const;
    const QList<GraphDefinition>& graphs() const { return m_graphs; }
    /// The view of `ViewRegistry` that loads the rows `graph` draws: the first view of the
    /// graph's log kind; nullptr when none has it.
    static const ViewDefinition* rowsView(const GraphDefinition& graph);

private:
    GraphRegistry();

    QList<GraphDefinition> m_graphs;
};

} // namespace lorvane
