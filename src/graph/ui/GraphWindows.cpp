// SPDX-License-Identifier: GPL-3.0-or-later
#include "GraphWindows.h"

#include "graph/GraphRegistry.h"

#include <QHash>

namespace lorvane {

namespace {

QHash<int, GraphWindows::Maker>& makers()
{
    static QHash<int, GraphWindows::Maker> table;
    return table;
}

} // namespace

bool GraphWindows::add(int logKind, Maker maker)
{
    if (!maker || !GraphRegistry::instance().find(logKind))
        return false;
    makers().insert(logKind, std::move(maker));
    return true;
}

bool GraphWindows::has(int logKind)
{
    return makers().contains(logKind);
}

GraphWindows::Maker GraphWindows::maker(int logKind)
{
    return makers().value(logKind);
}

QWidget* GraphWindows::open(const GraphSelection& selection, QWidget* parent)
{
    const auto found = makers().constFind(selection.logKind);
    return found == makers().cend() ? nullptr : (*found)(selection, parent);
}

void GraphWindows::remove(int logKind)
{
    makers().remove(logKind);
}

} // namespace lorvane
