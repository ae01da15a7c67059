// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendGraphMaker.h"

#include "app/RunContext.h"
#include "frmGraphView.h"
#include "frmSetSelection.h"
#include "graph/ui/GraphWindows.h"
#include "store/LogKind.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>

namespace lorvane {

namespace {

QString settingsFile(const RunContext& context)
{
    // The trend's colours sit beside the program's own settings file.
    return QFileInfo(context.paths.settingsFile)
        .dir()
        .filePath(QStringLiteral("LogGraphSettings.ini"));
}

} // namespace

void TrendGraphMaker::add(RunContext& context)
{
    for (LogKind kind : {LogKind::Snapshots, LogKind::Demand}) {
        GraphWindows::add(
            int(kind), [&context](const GraphSelection& selection, QWidget* parent) -> QWidget* {
                auto* window = new frmGraphView(context.work, context.dictionary.get(),
                                                settingsFile(context), parent);
                if (!window->showGraph(request(selection))) {
                    delete window;
                    return nullptr;
                }
                return window;
            });
    }
}

QWidget* TrendGraphMaker::overview(RunContext& context, const QString& meterPath,
                                   const std::function<void(QWidget*)>& show)
{
    auto* window = new frmSetSelection(context.work);
    QObject::connect(window, &frmSetSelection::viewRequested, window,
                     [&context, show](const TrendRequest& request) {
                         auto* trend = new frmGraphView(context.work, context.dictionary.get(),
                                                        settingsFile(context));
                         if (trend->showGraph(request))
                             show(trend);
                         else
                             delete trend;
                     });
    if (!meterPath.isEmpty()) {
        window->entryFilename()->setText(meterPath);
        window->loadAnalysis();
    }
    return window;
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
