// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqGraphMaker.h"

#include "CBEMAGraph_Ex1.h"
#include "app/RunContext.h"
#include "graph/ui/GraphWindows.h"
#include "store/LogKind.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

void PqGraphMaker::add(RunContext& context, std::function<void(const QString& topic)> help,
                       std::function<void(const GraphSelection& selection)> openGraph)
{
    GraphWindows::add(
        int(LogKind::PowerQuality),
        [&context, help = std::move(help), openGraph = std::move(openGraph)](
            const GraphSelection& selection, QWidget* parent) -> QWidget* {
            auto* window = new CBEMAGraph_Ex1(context.scratch->database(), context.work, parent);
            // System Properties may change the curve while the window is open.
            window->setEnvelopeSetting([&context] {
                return CBEMAGraph_Ex1::EnvelopeSetting{context.settings.useCBEMACurve,
                                                       context.settings.userPQCurveFile};
            });
            if (help)
                QObject::connect(window, &CBEMAGraph_Ex1::helpRequested, window, help);
            if (openGraph)
                QObject::connect(window, &CBEMAGraph_Ex1::captureRequested, window,
                                 [openGraph, caption = selection.caption](
                                     const QueryNumbers& numbers, qint64 capture) {
                                     GraphSelection wave;
                                     wave.logKind = int(LogKind::Waveform);
                                     wave.numbers = numbers;
                                     wave.rows = {{{QStringLiteral("RecCounter"), capture}}};
                                     wave.position = 0;
                                     wave.caption = caption;
                                     openGraph(wave);
                                 });
            if (!window->open(selection.numbers)) {
                delete window;
                return nullptr;
            }
            return window;
        });
}

} // namespace lorvane
