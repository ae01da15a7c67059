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
    auto maker = [&context, help = std::move(help)](const GraphSelection& selection,
                                                    QWidget* parent) -> QWidget* {
        try {
            if (!context.scratch)
                throw std::runtime_error(context.scratchProblem.toStdString());
            SelPGraph choice(*context.scratch, context.dictionary.get(), selection.numbers.query,
                             &context.work, parent);
            if (choice.exec() != QDialog::Accepted)
                return nullptr;
            auto window = std::make_unique<PGraph>(context.paths.settingsFile, parent);
            if (help)
                QObject::connect(window.get(), &PGraph::helpRequested, window.get(), help);
            window->ShowPowerGraph(choice.items(), choice.kind());
            return window.release();
        } catch (const std::exception& e) {
            userMessages().show(powerGraphFailure(e), UserMessages::Icon::Critical);
            return nullptr;
        }
    };
    GraphWindows::add(int(LogKind::Snapshots), maker);
    GraphWindows::add(int(LogKind::Demand), maker);
}

} // namespace lorvane
