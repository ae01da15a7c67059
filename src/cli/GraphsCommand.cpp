// SPDX-License-Identifier: GPL-3.0-or-later
#include "GraphsCommand.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "graph/GraphRegistry.h"
#include "query/engine/ViewRegistry.h"

#include <QJsonArray>
#include <QTextStream>

namespace lorvane::cli {

int GraphsCommand::run(const QStringList& arguments)
{
    bool json = false;
    for (const QString& a : arguments) {
        if (a == QLatin1String("--json"))
            json = true;
        else
            return CliOutput::usage(QStringLiteral("unknown option: ") + a);
    }
    QJsonArray list;
    QTextStream out(stdout);
    for (const GraphDefinition& graph : GraphRegistry::instance().graphs()) {
        const ViewDefinition* view = GraphRegistry::rowsView(graph);
        const QString viewName = view ? view->name : QString();
        if (json)
            list.append(QJsonObject{{QStringLiteral("name"), graph.name},
                                    {QStringLiteral("logKind"), graph.logKind},
                                    {QStringLiteral("view"), viewName},
                                    {QStringLiteral("description"), graph.description}});
        else
            out << graph.name << '\t' << graph.logKind << '\t' << viewName << '\t'
                << graph.description << '\n';
    }
    if (json)
        CliOutput::printJson(QJsonObject{{QStringLiteral("graphs"), list}});
    return Success;
}

} // namespace lorvane::cli
