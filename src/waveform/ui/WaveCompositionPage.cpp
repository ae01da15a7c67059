// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveCompositionPage.h"

#include "WaveDrawStyle.h"
#include "WaveStripChart.h"
#include "platform/UserText.h"
#include "waveform/WaveGraphTexts.h"

#include <QVBoxLayout>

namespace lorvane {

WaveCompositionPage::WaveCompositionPage(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_chart = new WaveStripChart;
    layout->addWidget(m_chart);
    connect(m_chart, &WaveStripChart::zoomRequested, this, [this](double x0, double x1) {
        if (m_zoom.zoomTo(x0, x1))
            refresh();
    });
    connect(m_chart, &WaveStripChart::menuRequested, this, &WaveCompositionPage::menuRequested);
}

void WaveCompositionPage::show(QList<WaveGraphSession::CompositionCurve> curves,
                               const WaveDisplaySettings& settings)
{
    m_curves = std::move(curves);
    m_chart->clearCurves();
    double width = 0;
    for (int i = 0; i < m_curves.size(); ++i) {
        const WaveGraphSession::CompositionCurve& curve = m_curves.at(i);
        if (curve.time.isEmpty())
            continue;
        width = std::max<double>(width, curve.time.last());
        m_chart->addCurve(curve.legend, &curve.time, &curve.values,
                          WaveDrawStyle::color(settings.drawColor(i)));
    }
    const int firstChannel = m_curves.isEmpty() ? 0 : m_curves.first().channel;
    m_chart->setTitles(userText("503442", "Advanced Waveform Analysis"),
                       WaveGraphTexts::timeTitle(), WaveGraphTexts::axisTitle(firstChannel, 60));
    m_chart->setColors(WaveDrawStyle::color(settings.foreColor),
                       WaveDrawStyle::color(settings.backColor));
    m_chart->setAutomaticY();
    m_zoom.reset({0, width > 0 ? width : 1});
    m_marks.clear();
    refresh();
}

void WaveCompositionPage::zoomOut()
{
    m_zoom.zoomOut();
    m_chart->setAutomaticY();
}

void WaveCompositionPage::refresh()
{
    m_chart->setXRange(m_zoom.range().x0, m_zoom.range().x1);
    m_chart->setAnnotations(m_marks.annotations());
}

} // namespace lorvane
