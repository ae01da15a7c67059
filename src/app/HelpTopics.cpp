// SPDX-License-Identifier: GPL-3.0-or-later
#include "HelpTopics.h"

#include "platform/UserText.h"

#include <QFileInfo>
#include <QHash>
#include <utility>

namespace lorvane {

namespace {

const QString contentsPage = QStringLiteral("main-window.md");

} // namespace

HelpTopics::HelpTopics(QString helpFolder) : m_folder(std::move(helpFolder))
{
}

QString HelpTopics::folderOf(const QString& progDataPath)
{
    return progDataPath + QStringLiteral("/help");
}

QString HelpTopics::pageName(const QString& topic)
{
    static const QHash<QString, QString> pages = {
        {QStringLiteral("Contents"), contentsPage},
        {QStringLiteral("Search"), contentsPage},
        {QStringLiteral("LRMain"), QStringLiteral("selection-window.md")},
        {QStringLiteral("LRSort"), QStringLiteral("sort-options.md")},
        {QStringLiteral("LRWaveform"), QStringLiteral("waveform-window.md")},
        {QStringLiteral("LRRelayLogic"), QStringLiteral("relay-logic.md")},
        {QStringLiteral("LRDBStatus"), QStringLiteral("log-grid.md")},
        {QStringLiteral("LRHistTrends"), QStringLiteral("log-grid.md")},
        {QStringLiteral("LRLimits"), QStringLiteral("log-grid.md")},
        {QStringLiteral("LRStatChange"), QStringLiteral("log-grid.md")},
        {QStringLiteral("LRControl"), QStringLiteral("log-grid.md")},
        {QStringLiteral("LRFlicker"), QStringLiteral("log-grid.md")},
        {QStringLiteral("LRPowerGraph"), QStringLiteral("power-graph.md")},
        {QStringLiteral("SystemProperties"), QStringLiteral("system-properties.md")},
        {QStringLiteral("About"), QStringLiteral("about.md")},
        {QStringLiteral("Progress"), QStringLiteral("progress.md")},
    };
    return pages.value(topic, contentsPage);
}

QString HelpTopics::page(const QString& topic) const
{
    const QString path = m_folder + u'/' + pageName(topic);
    return QFileInfo(path).isFile() ? path : QString();
}

QString HelpTopics::missingHelpMessage()
{
    return userText("309020", "Unable to display Help Contents. There is no Help associated with "
                              "this program.");
}

} // namespace lorvane
