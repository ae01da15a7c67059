// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphMaker.h"

#include "TalWaveGraphPE.h"
#include "app/ui/frmProgress.h"
#include "graph/ui/GraphWindows.h"
#include "store/LogKind.h"

#include <QPointer>

namespace lorvane {

void WaveGraphMaker::add(RunContext& context, frmProgress* progress,
                         std::function<void(const QString& topic)> help)
{
    GraphWindows::add(
        int(LogKind::Waveform),
        [&context, progress = QPointer<frmProgress>(progress),
         help = std::move(help)](const GraphSelection& selection, QWidget* parent) -> QWidget* {
            auto* window = new TalWaveGraphPE(context, parent);
            window->setProgressWindow(progress.data());
            if (help)
                QObject::connect(window, &TalWaveGraphPE::helpRequested, window, help);
            if (!window->open(selection.numbers, series(selection), selection.position,
                              selection.caption)) {
                delete window;
                return nullptr;
            }
            return window;
        });
}

QList<qint32> WaveGraphMaker::series(const GraphSelection& selection)
{
    QList<qint32> out;
    out.reserve(selection.rows.size());
    for (const QVariantMap& keys : selection.rows)
        out << keys.value(QStringLiteral("RecCounter")).toInt();
    return out;
}

} // namespace lorvane
