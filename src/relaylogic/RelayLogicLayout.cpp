// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicLayout.h"

#include <algorithm>

namespace lorvane {

namespace {

using Kind = RelayLogicNode::Kind;

QList<QList<int>> sourcesOf(const RelayLogicTree& tree)
{
    QList<QList<int>> sources(tree.nodes.size());
    for (const RelayLogicEdge& e : tree.edges)
        sources[e.to] << e.from;
    return sources;
}

double meanRow(const RelayLogicTree& tree, const QList<int>& sources, double fallback)
{
    if (sources.isEmpty())
        return fallback;
    double sum = 0.0;
    for (int s : sources)
        sum += tree.nodes.at(s).row;
    return sum / double(sources.size());
}

} // namespace

void RelayLogicLayout::place(RelayLogicTree& tree)
{
    const QList<QList<int>> sources = sourcesOf(tree);
    int inputRows = 0;
    int lastGateColumn = 0;
    for (int i = 0; i < tree.nodes.size(); ++i) {
        RelayLogicNode& node = tree.nodes[i];
        if (node.kind == Kind::Input) {
            node.column = 0;
            node.row = inputRows++;
        } else if (node.kind == Kind::Gate) {
            int column = 0;
            for (int s : sources.at(i))
                column = std::max(column, tree.nodes.at(s).column);
            node.column = column + 1;
            node.row = meanRow(tree, sources.at(i), 0.0);
            lastGateColumn = std::max(lastGateColumn, node.column);
        }
    }
    const int pathColumn = lastGateColumn + 1;
    double setRow = 0.0;
    for (int i = 0; i < tree.nodes.size(); ++i) {
        RelayLogicNode& node = tree.nodes[i];
        switch (node.kind) {
        case Kind::SetPath:
            node.column = pathColumn;
            node.row = meanRow(tree, sources.at(i), 0.0);
            break;
        case Kind::Delay:
            node.column = pathColumn + 1;
            // The reset delay has nothing before it: it stands two rows below the set delay,
            // room for the two lines of each.
            if (node.number == 1)
                setRow = node.row = meanRow(tree, sources.at(i), 0.0);
            else
                node.row = setRow + 2.0;
            break;
        case Kind::Relay:
            node.column = pathColumn + 2;
            node.row = meanRow(tree, sources.at(i), setRow);
            break;
        default:
            break;
        }
    }
    tree.columns = pathColumn + 3;
    double rows = std::max(1.0, double(inputRows));
    for (const RelayLogicNode& node : tree.nodes)
        rows = std::max(rows, node.row + 1.0);
    tree.rows = rows;
}

} // namespace lorvane
