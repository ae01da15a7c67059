// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendGraphMaker.h"

#include "app/RunContext.h"
#include "frmGraphView.h"
#include "graph/ui/GraphWindows.h"
#include "store/LogKind.h"

#include <QDir>
#include <QFileInfo>

namespace lorvane {

void TrendGraphMaker::add(RunContext& context)
{
    for (LogKind kind : {LogKind::Snapshots, LogKind::Demand}) {
        GraphWindows::add(
            int(kind), [&context](const GraphSelection& selection, QWidget* parent) -> QWidget* {
                // The trend's colours sit beside the program's own settings file.
                const QString settings = QFileInfo(context.paths.settingsFile)
                                             .dir()
                                             .filePath(QStringLiteral("LogGraphSettings.ini"));
                auto* window =
                    new frmGraphView(context.work, context.dictionary.get(), settings, parent);
                if (!window->showGraph(request(selection))) {
                    delete window;
                    return nullptr;
                }
                return window;
            });
    }
}

TrendRequest TrendGraphMaker::request(const GraphSelection& selection)
{
    TrendRequest request;
    request.log = LogKind(selection.logKind);
    QList<QString> paths;
    for (const QVariantMap& row : selection.rows) {
        const QString path = row.value(QStringLiteral("DbPath")).toString();
        if (!paths.contains(path)) {
            paths << path;
            LogFileEntry meter;
            meter.dbPath = path;
            meter.deviceTypeId = row.value(QStringLiteral("DeviceTypeID")).toInt();
            meter.used = true;
            request.meters << meter;
        }
        const qint32 id = row.value(QStringLiteral("DataID")).toInt();
        if (!request.dataIds.contains(id))
            request.dataIds << id;
        request.from = row.value(QStringLiteral("From")).toDateTime();
        request.to = row.value(QStringLiteral("To")).toDateTime();
    }
    return request;
}

} // namespace lorvane
