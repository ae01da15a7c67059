// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ViewResult.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace lorvane {

struct QueryContext;

/// Which pages of a view the caller wants: one page (from 1), or every page to the end of the
/// range. A view that does not page returns its single result whatever is asked.
struct ViewRequest
{
    int page = 1;
    bool allPages = false;
};

/// One named view: what `lorvane-cli query NAME` runs and what the log grid window shows for
/// the same selection. `run` creates the query in `context.scratch`, loads it and returns the
/// pages asked for (at least one result, page order); it throws StorageError or Fault on a
/// failure the caller reports.
struct ViewDefinition
{
    QString name;
    LogKind logKind = LogKind::DatabaseStatus;
    QString description;
    std::function<QList<ViewResult>(QueryContext&, const ViewRequest&)> run;
};

/// The views by name. Each view adds itself with one entry in the table of ViewRegistry.cpp.
class ViewRegistry
{
public:
    /// The registry of every view of the program, built on first use.
    static const ViewRegistry& instance();

    /// The view of that name (case-sensitive), or nullptr.
    const ViewDefinition* find(const QString& name) const;
    /// The names in table order.
    QStringList names() const;
    const QList<ViewDefinition>& views() const { return m_views; }

    /// Wraps a view that shows one page whatever is asked into the form `run` expects.
    static std::function<QList<ViewResult>(QueryContext&, const ViewRequest&)>
    singlePage(std::function<ViewResult(QueryContext&)> view);

private:
    ViewRegistry();

    QList<ViewDefinition> m_views;
};

} // namespace lorvane
