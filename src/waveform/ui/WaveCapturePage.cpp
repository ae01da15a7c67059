// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveCapturePage.h"

#include "WaveBarChart.h"
#include "WaveDrawStyle.h"
#include "platform/UserText.h"
#include "waveform/WaveGraphSession.h"
#include "waveform/WaveGraphTexts.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

namespace lorvane {

namespace {

/// Scroll bar steps per millisecond of the capture.
constexpr double scrollScale = 100.0;

} // namespace

WaveCapturePage::WaveCapturePage(WaveGraphSession& session, QWidget* parent)
    : QWidget(parent), m_session(session)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* scrollArea = new QScrollArea;
    scrollArea->setWidgetResizable(true);
    auto* area = new QWidget;
    m_graphLayout = new QVBoxLayout(area);
    m_graphLayout->setSpacing(2);
    scrollArea->setWidget(area);
    layout->addWidget(scrollArea, 1);
    m_harmonics = new WaveBarChart;
    m_harmonics->setHoverText(
        [](int bin, double percent) { return WaveGraphTexts::harmonicHoverText(bin, percent); });
    m_harmonics->hide();
    layout->addWidget(m_harmonics);
    m_scroll = new QScrollBar(Qt::Horizontal);
    m_scroll->setObjectName(QStringLiteral("HScroll1"));
    m_scroll->hide();
    layout->addWidget(m_scroll);

    // Scrolling a zoomed range redraws at most every 50 ms, not at every scroll bar step.
    m_waveTimer = new QTimer(this);
    m_waveTimer->setObjectName(QStringLiteral("WaveTimer1"));
    m_waveTimer->setSingleShot(true);
    m_waveTimer->setInterval(50);
    connect(m_scroll, &QScrollBar::valueChanged, this, [this] { m_waveTimer->start(); });
    connect(m_waveTimer, &QTimer::timeout, this, [this] {
        m_session.zoom().scrollTo(m_scroll->value() / scrollScale);
        refresh();
        emit scrolled();
    });
}

void WaveCapturePage::rebuild(const std::function<void(int strip)>& settingUp)
{
    qDeleteAll(m_charts);
    m_charts.clear();
    const WaveDisplaySettings& settings = m_session.settings();
    const WaveformChannels& ch = m_session.capture().channels();
    const WaveformRecord& r = m_session.capture().record();
    const QColor fore = WaveDrawStyle::color(settings.foreColor);
    const QColor back = WaveDrawStyle::color(settings.backColor);
    const bool points = settings.plotMode != WaveDisplaySettings::PlotMode::Line;
    const bool lines = settings.plotMode != WaveDisplaySettings::PlotMode::Point;
    const bool overlay = settings.displayMode != WaveDisplaySettings::DisplayMode::Classic;
    const qreal pixels = points ? WaveDrawStyle::pointPixels(settings.pointSize) : 0;
    for (const WaveGraphSession::Strip& strip : m_session.strips()) {
        if (settingUp)
            settingUp(int(m_charts.size()));
        auto* chart = new WaveStripChart;
        chart->setColors(fore, back);
        chart->setTitles(strip.name, WaveGraphTexts::timeTitle(), strip.yTitle);
        chart->setHoverText([this](double x) {
            const QVector<float>& time = m_session.capture().channels().time;
            const double trigger = time.value(m_session.capture().record().timingPT, 0.0F);
            return WaveGraphTexts::pointHoverText(x, x - trigger);
        });
        const bool inputs = strip.channels.first() >= WaveformChannels::Input1;
        for (const int c : strip.channels) {
            const bool lane = c >= WaveformChannels::Input1;
            const QString name = lane && !overlay ? r.inputLabels.at(c - WaveformChannels::Input1)
                                 : overlay        ? WaveGraphTexts::overlayName(c, ch.labels.at(c))
                                                  : ch.labels.at(c);
            const QColor color = WaveDrawStyle::color(settings.drawColor(c));
            const int lineType = settings.itemLineType.at(c);
            chart->addCurve(name, &ch.time, &ch.samples.at(c), color,
                            WaveDrawStyle::penStyle(lineType), WaveDrawStyle::penWidth(lineType),
                            lines, pixels,
                            WaveDrawStyle::marker(settings.itemPointType.at(c), color, pixels));
        }
        if (inputs)
            chart->setManualY(0, 16);
        const int first = strip.channels.first();
        connect(chart, &WaveStripChart::clicked, this,
                [this, first](double x) { emit clicked(first, x); });
        connect(chart, &WaveStripChart::zoomRequested, this,
                [this, chart](double x0, double x1, double y0, double y1) {
                    emit zoomRequested(chart, x0, x1, y0, y1);
                });
        connect(chart, &WaveStripChart::menuRequested, this,
                [this, chart, first](double x, const QPoint& at) {
                    emit menuRequested(chart, first, x, at);
                });
        m_graphLayout->addWidget(chart);
        m_charts << chart;
    }
    refresh();
}

void WaveCapturePage::refresh()
{
    const QList<WaveGraphSession::Strip> strips = m_session.strips();
    const int focus = m_session.focus();
    const bool details = m_session.detailsOn() && m_session.hasStatistics();
    const WaveZoomStack::Range range = m_session.zoom().range();
    for (int i = 0; i < m_charts.size() && i < strips.size(); ++i) {
        const WaveGraphSession::Strip& strip = strips.at(i);
        WaveStripChart* chart = m_charts.at(i);
        chart->setVisible(m_session.stripShown(strip));
        chart->setTitles(strip.name, WaveGraphTexts::timeTitle(), strip.yTitle);
        chart->setXRange(range.x0, range.x1);
        chart->setAnnotations(m_session.annotations(strip));
        chart->setTextBlock(details && strip.channels.contains(focus) ? m_session.statisticsText()
                                                                      : QString());
    }
    if (details && focus < WaveformChannels::analogCount) {
        m_harmonics->show(m_session.statistics().harmonics.graph,
                          WaveDrawStyle::color(m_session.settings().drawColor(focus)));
        m_harmonics->setVisible(true);
    } else {
        m_harmonics->hide();
    }
    const WaveZoomStack::Range full = m_session.zoom().full();
    const bool zoomed = m_session.zoom().depth() > 0;
    m_scroll->setVisible(zoomed);
    if (zoomed) {
        const QSignalBlocker block(m_scroll);
        const double width = range.x1 - range.x0;
        m_scroll->setRange(int(full.x0 * scrollScale), int((full.x1 - width) * scrollScale));
        m_scroll->setPageStep(int(width * scrollScale));
        m_scroll->setSingleStep(std::max(1, int(width * scrollScale / 20)));
        m_scroll->setValue(int(range.x0 * scrollScale));
    }
}

void WaveCapturePage::setZoomMode(WaveStripChart::ZoomMode mode)
{
    for (WaveStripChart* chart : std::as_const(m_charts))
        chart->setZoomMode(mode);
}

void WaveCapturePage::zoomOut()
{
    m_session.zoom().zoomOut();
    for (WaveStripChart* chart : std::as_const(m_charts))
        chart->setAutomaticY();
}

WaveStripChart* WaveCapturePage::strip(int index) const
{
    return index >= 0 && index < m_charts.size() ? m_charts.at(index) : nullptr;
}

WaveStripChart* WaveCapturePage::focusStrip() const
{
    const QList<WaveGraphSession::Strip> strips = m_session.strips();
    for (int i = 0; i < strips.size() && i < m_charts.size(); ++i) {
        if (strips.at(i).channels.contains(m_session.focus()))
            return m_charts.at(i);
    }
    return nullptr;
}

QList<std::pair<QString, QChartView*>> WaveCapturePage::graphs() const
{
    QList<std::pair<QString, QChartView*>> shown;
    const QList<WaveGraphSession::Strip> strips = m_session.strips();
    for (int i = 0; i < strips.size() && i < m_charts.size(); ++i) {
        if (!m_charts.at(i)->isHidden())
            shown.append({strips.at(i).name, m_charts.at(i)});
    }
    if (!m_harmonics->isHidden())
        shown.append({userText("503427", "Harmonic"), m_harmonics});
    return shown;
}

} // namespace lorvane
