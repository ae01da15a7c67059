// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicMaker.h"

#include "FrmRelayLogic.h"
#include "app/RunContext.h"
#include "graph/ui/GraphWindows.h"
#include "store/LogKind.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

void RelayLogicMaker::add(RunContext& context, std::function<void(const QString& topic)> help)
{
    GraphWindows::add(int(LogKind::Relays),
                      [&context, help = std::move(help)](const GraphSelection& selection,
                                                         QWidget* parent) -> QWidget* {
                          if (!context.scratch)
                              return nullptr;
                          auto* window =
                              new FrmRelayLogic(context.scratch->database(), selection.numbers,
                                                selection.rows, parent);
                          if (help)
                              QObject::connect(window, &FrmRelayLogic::helpRequested, window, help);
                          if (!window->ShowRelayLogic(selection.position)) {
                              delete window;
                              return nullptr;
                          }
                          return window;
                      });
}

} // namespace lorvane
