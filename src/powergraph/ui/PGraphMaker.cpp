// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphMaker.h"

#include "PGraph.h"
#include "PGraphFailure.h"
#include "SelPGraph.h"
#include "app/RunContext.h"
#include "graph/ui/GraphWindows.h"
#include "platform/UserMessages.h"
#include "store/LogKind.h"

#include <memory>

namespace lorvane {

void PGraphMaker::add(RunContext& context, std::function<void(const QString& topic)> help)
{
    for (const LogKind kind : {LogKind::Snapshots, LogKind::Demand}) {
        // The grid's trend graph, when its window registered first, stays reachable: the item
        // choice offers it as "Trend Graph" and hands the selection on unchanged.
        GraphWindows::Maker trend = GraphWindows::maker(int(kind));
        GraphWindows::add(
            int(kind),
            [&context, help, trend](const GraphSelection& selection, QWidget* parent) -> QWidget* {
                try {
                    if (!context.scratch)
                        throw std::runtime_error(context.scratchProblem.toStdString());
                    SelPGraph choice(*context.scratch, context.dictionary.get(),
                                     selection.numbers.query, &context.work, bool(trend), parent);
                    if (choice.exec() != QDialog::Accepted)
                        return nullptr;
                    if (choice.trendChosen())
                        return trend(selection, parent);
                    auto window = std::make_unique<PGraph>(context.paths.settingsFile, parent);
                    if (help)
                        QObject::connect(window.get(), &PGraph::helpRequested, window.get(), help);
                    window->ShowPowerGraph(choice.items(), choice.kind());
                    return window.release();
                } catch (const std::exception& e) {
                    userMessages().show(powerGraphFailure(e), UserMessages::Icon::Critical);
                    return nullptr;
                }
            });
    }
}

} // namespace lorvane
