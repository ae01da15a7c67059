// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveInterharmonicPage.h"

#include "WaveBarChart.h"
#include "WaveDrawStyle.h"
#include "WaveStripChart.h"

#include <QChart>
#include <QVBoxLayout>

namespace lorvane {

WaveInterharmonicPage::WaveInterharmonicPage(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    m_trace = new WaveStripChart;
    m_trace->setHoverText([](double x) { return InterharmonicAnalysis::traceHotSpot(x); });
    m_spectrum = new WaveBarChart;
    m_groups = new WaveBarChart;
    m_spectrum->setHoverText(
        [](int, double v) { return InterharmonicAnalysis::barHotSpot(false, v); });
    m_groups->setHoverText(
        [](int, double v) { return InterharmonicAnalysis::barHotSpot(true, v); });
    layout->addWidget(m_trace);
    layout->addWidget(m_spectrum);
    layout->addWidget(m_groups);
    showGraph(Graph::Trace);
}

void WaveInterharmonicPage::show(InterharmonicAnalysis::Result result,
                                 const WaveDisplaySettings& settings, int channel)
{
    m_result = std::move(result);
    m_trace->clearCurves();
    m_trace->setTitles(m_result.trace.title, m_result.trace.xTitle, m_result.trace.yTitle);
    m_trace->addCurve(m_result.trace.subsetTitle, &m_result.time, &m_result.samples,
                      WaveDrawStyle::color(settings.drawColor(channel)));
    m_trace->setColors(WaveDrawStyle::color(settings.foreColor),
                       WaveDrawStyle::color(settings.backColor));
    m_spectrum->show(m_result.spectrum, QColor(0, 90, 170));
    m_groups->show(m_result.groups, QColor(170, 60, 0));
    showGraph(m_graph);
}

void WaveInterharmonicPage::showGraph(Graph graph)
{
    m_graph = graph;
    m_trace->setVisible(graph == Graph::Trace);
    m_spectrum->setVisible(graph == Graph::Spectrum);
    m_groups->setVisible(graph == Graph::Groups);
}

void WaveInterharmonicPage::setRms(const QList<std::pair<QString, double>>& values)
{
    QStringList lines;
    for (const auto& [label, rms] : values)
        lines << label + QStringLiteral(" = ") + QString::number(rms, 'f', 2);
    m_trace->setTextBlock(lines.join(u'\n'));
}

void WaveInterharmonicPage::zoomOut()
{
    m_trace->setAutomaticY();
    if (!m_result.time.isEmpty())
        m_trace->setXRange(m_result.time.first(), m_result.time.last());
    m_spectrum->setAutomaticY();
    m_groups->setAutomaticY();
}

YExtentsTarget* WaveInterharmonicPage::shownTarget() const
{
    switch (m_graph) {
    case Graph::Trace:
        return m_trace;
    case Graph::Spectrum:
        return m_spectrum;
    default:
        return m_groups;
    }
}

QList<std::pair<QString, QChartView*>> WaveInterharmonicPage::graphs() const
{
    QList<std::pair<QString, QChartView*>> shown;
    for (QChartView* graph : std::initializer_list<QChartView*>{m_trace, m_spectrum, m_groups}) {
        if (!graph->isHidden())
            shown.append({graph->chart()->title(), graph});
    }
    return shown;
}

} // namespace lorvane
