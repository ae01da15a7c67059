// SPDX-License-Identifier: GPL-3.0-or-later
#include "TalWaveGraphPE.h"

#include "WaveBarChart.h"
#include "WaveGraphCompSetup.h"
#include "WaveGraphSetup.h"
#include "WavePropertyFrm.h"
#include "app/RunContext.h"
#include "app/ui/frmProgress.h"
#include "frmSetYExtents.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "selWaveGraph_Export.h"
#include "store/TempQueryDatabase.h"
#include "waveform/CsvCaptureFile.h"
#include "waveform/WaveExportText.h"
#include "waveform/WaveGraphTexts.h"
#include "waveform/WaveformProperties.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QSvgGenerator>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>

namespace lorvane {

namespace {

/// Scroll bar steps per millisecond of the capture.
constexpr double scrollScale = 100.0;

QColor toQColor(qint32 value)
{
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

Qt::PenStyle penStyle(int lineType)
{
    switch (lineType) {
    case 1:
        return Qt::DashLine;
    case 2:
        return Qt::DotLine;
    case 3:
        return Qt::DashDotLine;
    case 4:
        return Qt::DashDotDotLine;
    default:
        return Qt::SolidLine;
    }
}

qreal penWidth(int lineType)
{
    static constexpr std::array<qreal, 10> widths{1, 1, 1, 1, 1, 2, 3, 1.5, 2.5, 4};
    return lineType >= 0 && lineType < 10 ? widths.at(lineType) : 1;
}

qreal pointPixels(int pointSize)
{
    static constexpr std::array<qreal, 4> sizes{5, 7, 10, 3};
    return sizes.at(std::clamp(pointSize, 0, 3));
}

} // namespace

TalWaveGraphPE::TalWaveGraphPE(RunContext& context, QWidget* parent)
    : TalWaveGraphPE(context.scratch->database(), context.paths.settingsFile, parent)
{
    m_pictureFolder = context.paths.pictureFolder();
}

TalWaveGraphPE::TalWaveGraphPE(SqliteDatabase& scratch, QString settingsFile, QWidget* parent)
    : QWidget(parent), m_scratch(scratch), m_settingsFile(std::move(settingsFile)),
      m_settings(WaveDisplaySettings::read(m_settingsFile)),
      m_interharmonic(m_settings.interHarmonicFreq)
{
    build();
}

TalWaveGraphPE::~TalWaveGraphPE() = default;

void TalWaveGraphPE::build()
{
    auto* layout = new QVBoxLayout(this);
    buildCommands(layout);
    buildViewCommands();

    m_pages = new QStackedWidget;
    auto* capturePage = new QWidget;
    auto* captureLayout = new QVBoxLayout(capturePage);
    captureLayout->setContentsMargins(0, 0, 0, 0);
    auto* scrollArea = new QScrollArea;
    scrollArea->setWidgetResizable(true);
    m_graphArea = new QWidget;
    m_graphLayout = new QVBoxLayout(m_graphArea);
    m_graphLayout->setSpacing(2);
    scrollArea->setWidget(m_graphArea);
    captureLayout->addWidget(scrollArea, 1);
    m_harmonics = new WaveBarChart;
    m_harmonics->setHoverText(
        [](int bin, double percent) { return WaveformStatistics::hotSpotText(bin, percent); });
    m_harmonics->hide();
    captureLayout->addWidget(m_harmonics);
    m_scroll = new QScrollBar(Qt::Horizontal);
    m_scroll->setObjectName(QStringLiteral("HScroll1"));
    m_scroll->hide();
    captureLayout->addWidget(m_scroll);
    m_pages->addWidget(capturePage);

    auto* ihPage = new QWidget;
    auto* ihLayout = new QVBoxLayout(ihPage);
    m_ihTrace = new WaveStripChart;
    m_ihSpectrum = new WaveBarChart;
    m_ihGroups = new WaveBarChart;
    m_ihSpectrum->setHoverText(
        [](int, double v) { return InterharmonicAnalysis::barHotSpot(false, v); });
    m_ihGroups->setHoverText(
        [](int, double v) { return InterharmonicAnalysis::barHotSpot(true, v); });
    // One graph at a time, chosen by the view's buttons.
    ihLayout->addWidget(m_ihTrace);
    ihLayout->addWidget(m_ihSpectrum);
    ihLayout->addWidget(m_ihGroups);
    m_pages->addWidget(ihPage);

    m_composition = new WaveStripChart;
    connect(m_composition, &WaveStripChart::zoomRequested, m_composition,
            [this](double x0, double x1) { m_composition->setXRange(x0, x1); });
    m_pages->addWidget(m_composition);
    layout->addWidget(m_pages, 1);

    m_status = new QLabel;
    layout->addWidget(m_status);

    // Scrolling a zoomed range redraws at most every 50 ms, not at every scroll bar step.
    m_waveTimer = new QTimer(this);
    m_waveTimer->setObjectName(QStringLiteral("WaveTimer1"));
    m_waveTimer->setSingleShot(true);
    m_waveTimer->setInterval(50);
    connect(m_scroll, &QScrollBar::valueChanged, this, [this] { m_waveTimer->start(); });
    connect(m_waveTimer, &QTimer::timeout, this, [this] {
        if (m_graphs.isEmpty())
            return;
        const double width = m_graphs.first().chart->xMax() - m_graphs.first().chart->xMin();
        const double start = m_scroll->value() / scrollScale;
        for (const Graph& g : std::as_const(m_graphs))
            g.chart->setXRange(start, start + width);
        refreshAnnotations();
    });
    resize(1100, 900);
}

void TalWaveGraphPE::buildCommands(QVBoxLayout* layout)
{
    const std::array<std::pair<int, QString>, 14> captions{{
        {Help, userText("503400", "&Help")},
        {PrintGraph, userText("503401", "&Print Graph")},
        {Close, userText("503402", "&Close")},
        {Details, userText("503403", "Waveform &Details On")},
        {ZoomOut, userText("503404", "&Zoom Out")},
        {Properties, userText("503405", "&Waveform Properties")},
        {Prev, userText("503406", "P&rev")},
        {Next, userText("503407", "&Next")},
        {NeutralCurrent, userText("503408", "I&aux On")},
        {Inputs, userText("503409", "&Inputs On")},
        {ExportPicture, userText("503410", "&Export Picture")},
        {ExportData, userText("503411", "Export &Data")},
        {Advanced, userText("503412", "Advanced Waveform")},
        {Interharmonic, userText("503413", "Interharmonic")},
    }};
    // Two rows, so that the window fits the frame of a small screen. &Close stands beside
    // them and stays in every state, while the rows give way to the set of a view.
    auto* top = new QHBoxLayout;
    m_commandSets = new QStackedWidget;
    auto* main = new QWidget;
    auto* rows = new QGridLayout(main);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(2);
    const int perRow = int(captions.size()) / 2;
    int position = 0;
    for (const auto& [index, caption] : captions) {
        auto* button = new QPushButton(caption);
        button->setObjectName(QStringLiteral("Command1_%1").arg(index));
        m_commands[index] = button;
        if (index == Close)
            continue;
        rows->addWidget(button, position / perRow, position % perRow);
        ++position;
    }
    m_commands[Close]->setToolTip(userText("505000", "Close this waveform view"));
    m_commandSets->addWidget(main);
    top->addWidget(m_commandSets, 1);
    top->addWidget(m_commands[Close], 0, Qt::AlignTop);
    layout->addLayout(top);
    connect(m_commands[Help], &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRWaveform")); });
    connect(m_commands[PrintGraph], &QPushButton::clicked, this, &TalWaveGraphPE::printGraphs);
    connect(m_commands[Close], &QPushButton::clicked, this, [this] { window()->close(); });
    connect(m_commands[Details], &QPushButton::clicked, this,
            [this] { setDetailsOn(!m_detailsOn); });
    connect(m_commands[ZoomOut], &QPushButton::clicked, this, &TalWaveGraphPE::zoomOutAll);
    connect(m_commands[Properties], &QPushButton::clicked, this, &TalWaveGraphPE::showProperties);
    connect(m_commands[Prev], &QPushButton::clicked, this, [this] { step(-1); });
    connect(m_commands[Next], &QPushButton::clicked, this, [this] { step(1); });
    connect(m_commands[NeutralCurrent], &QPushButton::clicked, this,
            [this] { setNeutralOn(!m_neutralOn); });
    connect(m_commands[Inputs], &QPushButton::clicked, this, [this] { setInputsOn(!m_inputsOn); });
    connect(m_commands[ExportPicture], &QPushButton::clicked, this, &TalWaveGraphPE::exportPicture);
    connect(m_commands[ExportData], &QPushButton::clicked, this, &TalWaveGraphPE::exportData);
    connect(m_commands[Advanced], &QPushButton::clicked, this,
            &TalWaveGraphPE::showCompositionSetup);
    connect(m_commands[Interharmonic], &QPushButton::clicked, this,
            &TalWaveGraphPE::showInterharmonic);
}

void TalWaveGraphPE::buildViewCommands()
{
    const std::array<QString, ViewCommandCount> captions{
        userText("505001", "&Help"),
        userText("505002", "&Back"),
        userText("505003", "&Print/Export"),
        userText("505004", "&Edit Graph"),
        userText("505005", "&Zoom Out"),
        userText("505006", "&Waveform"),
        userText("505007", "&Harmonic && Interharmonic"),
        userText("505008", "&IEC-1000-2-1 Interharmonic"),
    };
    auto* set = new QWidget;
    auto* row = new QHBoxLayout(set);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (int i = 0; i < ViewCommandCount; ++i) {
        m_viewCommands.at(i) = new QPushButton(captions.at(i));
        row->addWidget(m_viewCommands.at(i));
    }
    m_viewCommands[ViewBack]->setToolTip(userText("505009", "Go back to global view"));
    const std::array<QString, CheckCount> checks{
        userText("505010", "In"),
        userText("505011", "Inputs"),
        userText("505012", "RMS Val"),
    };
    for (int i = 0; i < CheckCount; ++i) {
        m_checks.at(i) = new QCheckBox(checks.at(i));
        m_checks.at(i)->setObjectName(QStringLiteral("Check1_%1").arg(i));
        row->addWidget(m_checks.at(i));
    }
    row->addStretch();
    m_commandSets->addWidget(set);

    connect(m_viewCommands[ViewHelp], &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRWaveform")); });
    connect(m_viewCommands[ViewBack], &QPushButton::clicked, this, [this] {
        if (view() == 0)
            setDetailsOn(false);
        else
            showCapture();
    });
    auto* printExport = new QMenu(this);
    printExport->addAction(userText("503460", "Print Graph"), this, &TalWaveGraphPE::printGraphs);
    printExport->addAction(userText("503459", "Export Graph"), this,
                           &TalWaveGraphPE::exportPicture);
    m_viewCommands[ViewPrintExport]->setMenu(printExport);
    connect(m_viewCommands[ViewEditGraph], &QPushButton::clicked, this, &TalWaveGraphPE::editGraph);
    connect(m_viewCommands[ViewZoomOut], &QPushButton::clicked, this, &TalWaveGraphPE::zoomOutAll);
    for (const int graph : {ViewWaveform, ViewSpectrum, ViewGroups}) {
        connect(m_viewCommands.at(graph), &QPushButton::clicked, this,
                [this, graph] { showInterharmonicGraph(graph); });
    }
    // In and Inputs are the toggles of buttons 9 and 10: they choose the strips that the
    // capture shows on the way back, and the buttons follow them.
    connect(m_checks[CheckNeutral], &QCheckBox::toggled, this, &TalWaveGraphPE::setNeutralOn);
    connect(m_checks[CheckInputs], &QCheckBox::toggled, this, &TalWaveGraphPE::setInputsOn);
    connect(m_checks[CheckRms], &QCheckBox::toggled, this, &TalWaveGraphPE::setRmsShown);
}

TalWaveGraphPE::State TalWaveGraphPE::state() const
{
    switch (view()) {
    case 1:
        return State::Interharmonic;
    case 2:
        return State::Advanced;
    default:
        return m_detailsOn ? State::Detail : State::Global;
    }
}

void TalWaveGraphPE::refreshState()
{
    const State now = state();
    const bool interharmonic = now == State::Interharmonic;
    m_commandSets->setCurrentIndex(now == State::Global ? 0 : 1);
    // The detail and advanced views carry the set `Command2`, the interharmonic view
    // `Command3`: the same five buttons and the choice of its graphs.
    const QString set =
        interharmonic ? QStringLiteral("Command3_%1") : QStringLiteral("Command2_%1");
    for (int i = 0; i < ViewCommandCount; ++i) {
        m_viewCommands.at(i)->setObjectName(set.arg(i));
        m_viewCommands.at(i)->setVisible(interharmonic || i < ViewWaveform);
    }
    for (QCheckBox* box : m_checks)
        box->setVisible(interharmonic);
    if (interharmonic) {
        for (const int graph : {ViewWaveform, ViewSpectrum, ViewGroups})
            m_viewCommands.at(graph)->setEnabled(graph != m_ihGraph);
    }
}

bool TalWaveGraphPE::open(const QueryNumbers& numbers, const QList<qint32>& series, int position,
                          const QString& caption)
{
    m_numbers = numbers;
    m_series = series;
    m_caption = caption;
    if (position < 0 || position >= series.size()) {
        userMessages().show(userText("503420", "There is no waveform to show."),
                            UserMessages::Icon::Warning, caption);
        return false;
    }
    return loadAt(position);
}

bool TalWaveGraphPE::loadAt(int position)
{
    for (QPushButton* button : m_commands) {
        if (button)
            button->setEnabled(false);
    }
    beginProgress(userText("505013", "Opening the waveform capture"));
    // The loader cannot stop half-way: its progress window offers no cancel.
    if (m_progress)
        m_progress->cancelButton()->setEnabled(false);
    const bool loaded = m_capture.open(m_scratch, m_numbers, m_series.at(position),
                                       [this](const QString& text) { progressStep(text); });
    endProgress();
    if (!loaded) {
        refreshCommands();
        userMessages().show(m_capture.message(), UserMessages::Icon::Warning, m_caption);
        return false;
    }
    m_position = position;
    m_marks.clear();
    m_cursor.reset();
    m_hasStatistics = false;
    m_zoomStack.clear();
    m_capture.record().windowStart = 0;
    const WaveformRecord& r = m_capture.record();
    m_focus = std::clamp(m_focus, 0, WaveformChannels::analogCount - 1);
    const QString kind = (m_capture.csvFile() && m_capture.csvFile()->transient())
                             ? userText("503421", "Transient")
                             : userText("503422", "Waveform");
    setWindowTitle(r.hardwareName + QStringLiteral(" - ") + kind + QStringLiteral(" #") +
                   QString::number(r.waveformNumber) + QStringLiteral(": ") + m_caption);
    buildGraphs();
    showCapture();
    refreshCommands();
    return true;
}

void TalWaveGraphPE::step(int delta)
{
    const int target = m_position + delta;
    if (target < 0) {
        userMessages().show(userText("503424", "This is the first waveform in this series") + u'.',
                            UserMessages::Icon::Information, windowTitle());
        return;
    }
    if (target >= m_series.size()) {
        userMessages().show(userText("503425", "This is the last waveform in this series") + u'.',
                            UserMessages::Icon::Information, windowTitle());
        return;
    }
    const int before = m_position;
    if (!loadAt(target) && before >= 0)
        loadAt(before);
}

double TalWaveGraphPE::stepMs() const
{
    const QVector<float>& time = m_capture.channels().time;
    return time.size() > 1 ? time.at(1) - time.at(0) : 0;
}

void TalWaveGraphPE::buildGraphs()
{
    for (const Graph& g : std::as_const(m_graphs))
        delete g.chart;
    m_graphs.clear();
    const WaveformChannels& ch = m_capture.channels();
    const WaveformRecord& r = m_capture.record();
    const QColor fore = toQColor(m_settings.foreColor);
    const QColor back = toQColor(m_settings.backColor);
    const bool points = m_settings.plotMode != WaveDisplaySettings::PlotMode::Line;
    const bool lines = m_settings.plotMode != WaveDisplaySettings::PlotMode::Point;

    auto addGraph = [&](const QList<int>& channels, const QString& name, const QString& yTitle) {
        auto* chart = new WaveStripChart;
        chart->setColors(fore, back);
        chart->setZoomMode(m_zoomMode);
        chart->setTitles(name, WaveGraphTexts::timeTitle(), yTitle);
        chart->setHoverText([this](double x) {
            const WaveformRecord& record = m_capture.record();
            const QVector<float>& time = m_capture.channels().time;
            const double trigger = time.value(record.timingPT, 0.0F);
            return WaveGraphTexts::pointHoverText(x, x - trigger);
        });
        for (int c : channels) {
            const bool overlay =
                m_settings.displayMode != WaveDisplaySettings::DisplayMode::Classic;
            const QString curve =
                overlay ? WaveGraphTexts::overlayName(c, ch.labels.at(c)) : ch.labels.at(c);
            chart->addCurve(curve, &ch.time, &ch.samples.at(c), toQColor(m_settings.drawColor(c)),
                            penStyle(m_settings.itemLineType.at(c)),
                            penWidth(m_settings.itemLineType.at(c)), lines,
                            points ? pointPixels(m_settings.pointSize) : 0);
        }
        if (channels.size() == 1 && channels.first() >= WaveformChannels::Input1)
            chart->setManualY(0, 16);
        m_graphLayout->addWidget(chart);
        connectChart(chart, channels.isEmpty() ? 0 : channels.first());
        m_graphs.append({chart, channels, name});
    };

    const int frequency = r.systemFrequency;
    QList<int> inputs;
    for (int c = WaveformChannels::Input1; c < WaveformChannels::channelCount; ++c)
        inputs << c;
    if (m_settings.displayMode == WaveDisplaySettings::DisplayMode::Classic) {
        for (int c = 0; c < WaveformChannels::analogCount; ++c)
            addGraph({c}, ch.labels.at(c), WaveGraphTexts::axisTitle(c, frequency));
        auto* chart = new WaveStripChart;
        chart->setColors(fore, back);
        chart->setTitles(WaveGraphTexts::axisTitle(WaveformChannels::Input1, frequency),
                         WaveGraphTexts::timeTitle(), QString());
        for (int c : inputs) {
            chart->addCurve(r.inputLabels.at(c - WaveformChannels::Input1), &ch.time,
                            &ch.samples.at(c), toQColor(m_settings.drawColor(c)));
        }
        chart->setManualY(0, 16);
        m_graphLayout->addWidget(chart);
        connectChart(chart, WaveformChannels::Input1);
        m_graphs.append({chart, inputs, WaveGraphTexts::axisTitle(WaveformChannels::Input1, 60)});
    } else {
        QList<int> volts, amps, lanes;
        for (int c = 0; c < WaveformChannels::channelCount; ++c) {
            if (!m_settings.overlayItems.at(c))
                continue;
            (c < WaveformChannels::Ia ? volts : c < WaveformChannels::Input1 ? amps : lanes) << c;
        }
        if (m_settings.displayMode == WaveDisplaySettings::DisplayMode::Overlay) {
            addGraph(volts + amps + lanes, userText("503426", "Overlay graph"), QString());
        } else {
            for (const auto& [group, channel] :
                 {std::pair{volts, 0}, std::pair{amps, 3}, std::pair{lanes, 7}}) {
                if (!group.isEmpty()) {
                    const QString title = WaveGraphTexts::axisTitle(channel, frequency);
                    addGraph(group, title, title);
                }
            }
        }
    }
    setNeutralOn(m_neutralOn);
    setInputsOn(m_inputsOn);
    applyRange(ch.time.isEmpty() ? 0 : ch.time.first(), ch.time.isEmpty() ? 1 : ch.time.last());
}

void TalWaveGraphPE::connectChart(WaveStripChart* chart, int channel)
{
    connect(chart, &WaveStripChart::clicked, this, [this, chart, channel](double x) {
        if (m_placingNote) {
            m_placingNote = false;
            m_userNotePosition = x;
            refreshAnnotations();
            return;
        }
        int target = channel;
        for (const Graph& g : std::as_const(m_graphs)) {
            if (g.chart == chart && !g.channels.isEmpty())
                target = g.channels.first();
        }
        clickAt(target, x);
    });
    connect(chart, &WaveStripChart::zoomRequested, this,
            [this, chart](double x0, double x1, double y0, double y1) {
                if (m_zoomMode != WaveStripChart::ZoomMode::Horizontal)
                    chart->setManualY(y0, y1);
                if (m_zoomMode != WaveStripChart::ZoomMode::Vertical)
                    zoomTo(x0, x1);
            });
    connect(
        chart, &WaveStripChart::menuRequested, this,
        [this, chart, channel](double x, const QPoint& at) { showMenu(chart, channel, x, at); });
}

WaveStripChart* TalWaveGraphPE::strip(int index) const
{
    return index >= 0 && index < m_graphs.size() ? m_graphs.at(index).chart : nullptr;
}

QStringList TalWaveGraphPE::graphNames() const
{
    QStringList names;
    for (const auto& [name, graph] : viewGraphs())
        names << name;
    return names;
}

QList<std::pair<QString, QChartView*>> TalWaveGraphPE::viewGraphs() const
{
    QList<std::pair<QString, QChartView*>> graphs;
    if (view() == 1) {
        for (QChartView* graph :
             std::initializer_list<QChartView*>{m_ihTrace, m_ihSpectrum, m_ihGroups}) {
            if (!graph->isHidden())
                graphs.append({graph->chart()->title(), graph});
        }
        return graphs;
    }
    if (view() == 2)
        return {{m_composition->chart()->title(), m_composition}};
    for (const Graph& g : m_graphs) {
        if (!g.chart->isHidden())
            graphs.append({g.name, g.chart});
    }
    if (m_hasStatistics && m_detailsOn && !m_harmonics->isHidden())
        graphs.append({userText("503427", "Harmonic"), m_harmonics});
    return graphs;
}

int TalWaveGraphPE::view() const
{
    return m_pages->currentIndex();
}

void TalWaveGraphPE::clickAt(int channel, double x)
{
    if (m_busy || !m_capture.isOpen())
        return;
    m_busy = true;
    m_focus = channel;
    const WaveformStatistics statistics(m_capture.record(), m_capture.channels());
    m_statistics = statistics.computeChannelStatistics(channel, x, stepMs());
    m_hasStatistics = true;
    m_cursor = m_capture.channels().time.value(m_statistics.window.cursor, static_cast<float>(x));
    showStatistics();
    m_busy = false;
}

QString TalWaveGraphPE::statisticsText() const
{
    return m_hasStatistics ? WaveformStatistics::annotationText(m_statistics) : QString();
}

void TalWaveGraphPE::showStatistics()
{
    const bool analog = m_focus < WaveformChannels::analogCount;
    for (const Graph& g : std::as_const(m_graphs)) {
        const bool focus = g.channels.contains(m_focus);
        g.chart->setTextBlock(focus && m_detailsOn && m_hasStatistics ? statisticsText()
                                                                      : QString());
        if (m_detailsOn && m_settings.displayMode == WaveDisplaySettings::DisplayMode::Classic)
            g.chart->setVisible(focus);
    }
    if (m_detailsOn && m_hasStatistics && analog) {
        GraphSeries bars = m_statistics.harmonics.graph;
        bars.subsetTitle = m_capture.channels().labels.at(m_focus) + QStringLiteral(" - ") +
                           m_capture.record().hardwareName;
        m_harmonics->show(bars, toQColor(m_settings.drawColor(m_focus)));
        m_harmonics->setVisible(true);
    } else {
        m_harmonics->hide();
    }
    refreshAnnotations();
}

void TalWaveGraphPE::setDetailsOn(bool on)
{
    m_detailsOn = on;
    m_commands[Details]->setText(on ? userText("503428", "Waveform &Details Off")
                                    : userText("503403", "Waveform &Details On"));
    if (!on) {
        setNeutralOn(m_neutralOn);
        setInputsOn(m_inputsOn);
        for (int c = 0; c < WaveformChannels::In && c < m_graphs.size(); ++c)
            m_graphs.at(c).chart->setVisible(true);
    }
    showStatistics();
    refreshState();
}

void TalWaveGraphPE::setNeutralOn(bool on)
{
    m_neutralOn = on;
    m_commands[NeutralCurrent]->setText(on ? userText("503429", "I&n Off")
                                           : userText("503430", "I&n On"));
    const QSignalBlocker block(m_checks[CheckNeutral]);
    m_checks[CheckNeutral]->setChecked(on);
    for (const Graph& g : std::as_const(m_graphs)) {
        if (g.channels == QList<int>{WaveformChannels::In})
            g.chart->setVisible(on && !m_detailsOn);
    }
}

void TalWaveGraphPE::setInputsOn(bool on)
{
    m_inputsOn = on;
    m_commands[Inputs]->setText(on ? userText("503431", "&Inputs Off")
                                   : userText("503409", "&Inputs On"));
    const QSignalBlocker block(m_checks[CheckInputs]);
    m_checks[CheckInputs]->setChecked(on);
    for (const Graph& g : std::as_const(m_graphs)) {
        if (!g.channels.isEmpty() && g.channels.first() >= WaveformChannels::Input1)
            g.chart->setVisible(on && !m_detailsOn);
    }
}

void TalWaveGraphPE::setMark(int number, double x)
{
    m_marks.set(number, x);
    refreshAnnotations();
}

void TalWaveGraphPE::clearMarks()
{
    if (!userMessages().ask(userText("503432", "Are you sure you want to clear the markers?"),
                            windowTitle()))
        return;
    m_marks.clear();
    refreshAnnotations();
}

void TalWaveGraphPE::refreshAnnotations()
{
    const WaveformRecord& r = m_capture.record();
    const WaveformChannels& ch = m_capture.channels();
    QList<WaveMarks::Annotation> common = m_marks.annotations();
    if (r.timingPT >= 0 && r.timingPT < ch.time.size())
        common << WaveMarks::decode(ch.time.at(r.timingPT), WaveGraphTexts::triggerText(r));
    if (r.windowStart > 0 && r.windowStart < ch.time.size()) {
        common << WaveMarks::decode(ch.time.at(r.windowStart),
                                    WaveGraphTexts::interharmonicStartText());
    }
    if (m_userNotePosition && !m_userNote.isEmpty())
        common << WaveMarks::decode(*m_userNotePosition, QStringLiteral("|l") + m_userNote);
    const CsvCaptureFile* csv = m_capture.csvFile();
    for (const Graph& g : std::as_const(m_graphs)) {
        QList<WaveMarks::Annotation> list = common;
        if (m_cursor && g.channels.contains(m_focus))
            list << WaveMarks::Annotation{*m_cursor, u'H', userText("503433", "Cursor")};
        // The transient detector reports the peaks of the three voltages.
        if (csv && csv->transient() && !csv->transientBlocks().isEmpty() && m_focus < 3 &&
            g.channels.contains(m_focus)) {
            const CsvCaptureFile::TransientBlock& block = csv->transientBlocks().first();
            const int pos = block.maxPosIndex.at(m_focus);
            const int neg = block.maxNegIndex.at(m_focus);
            const QVector<float>& values = ch.samples.at(m_focus);
            if (pos >= 0 && pos < values.size()) {
                list << WaveMarks::decode(
                    ch.time.at(pos), WaveGraphTexts::transientText(
                                         true, values.at(pos), block.maxPosDuration.at(m_focus)));
            }
            if (neg >= 0 && neg < values.size()) {
                list << WaveMarks::decode(
                    ch.time.at(neg), WaveGraphTexts::transientText(
                                         false, values.at(neg), block.maxNegDuration.at(m_focus)));
            }
        }
        g.chart->setAnnotations(list);
    }
}

void TalWaveGraphPE::applyRange(double x0, double x1)
{
    for (const Graph& g : std::as_const(m_graphs))
        g.chart->setXRange(x0, x1);
    const QVector<float>& time = m_capture.channels().time;
    const bool zoomed = !m_zoomStack.isEmpty() && !time.isEmpty();
    m_scroll->setVisible(zoomed);
    if (zoomed) {
        const QSignalBlocker block(m_scroll);
        const double width = x1 - x0;
        m_scroll->setRange(static_cast<int>(time.first() * scrollScale),
                           static_cast<int>((time.last() - width) * scrollScale));
        m_scroll->setPageStep(static_cast<int>(width * scrollScale));
        m_scroll->setSingleStep(std::max(1, static_cast<int>(width * scrollScale / 20)));
        m_scroll->setValue(static_cast<int>(x0 * scrollScale));
    }
    m_commands[Close]->setText(zoomed ? userText("503434", "&CLOSE")
                                      : userText("503402", "&Close"));
    refreshAnnotations();
}

void TalWaveGraphPE::zoomTo(double x0, double x1)
{
    if (m_graphs.isEmpty() || x1 <= x0)
        return;
    m_zoomStack.append({m_graphs.first().chart->xMin(), m_graphs.first().chart->xMax()});
    applyRange(x0, x1);
}

void TalWaveGraphPE::undoZoom()
{
    if (m_zoomStack.isEmpty())
        return;
    const auto [x0, x1] = m_zoomStack.takeLast();
    applyRange(x0, x1);
}

void TalWaveGraphPE::zoomOutAll()
{
    if (view() == 2) {
        m_composition->setAutomaticY();
        m_composition->setXRange(0, m_composition->property("fullWidth").toDouble());
        return;
    }
    if (view() == 1) {
        const QVector<float>& window = m_ihResult.time;
        m_ihTrace->setAutomaticY();
        if (!window.isEmpty())
            m_ihTrace->setXRange(window.first(), window.last());
        m_ihSpectrum->setAutomaticY();
        m_ihGroups->setAutomaticY();
        return;
    }
    const QVector<float>& time = m_capture.channels().time;
    m_zoomStack.clear();
    for (const Graph& g : std::as_const(m_graphs))
        g.chart->setAutomaticY();
    if (!time.isEmpty())
        applyRange(time.first(), time.last());
}

void TalWaveGraphPE::refreshCommands()
{
    const bool open = m_capture.isOpen();
    for (QPushButton* button : m_commands) {
        if (button)
            button->setEnabled(open);
    }
    m_commands[Help]->setEnabled(true);
    m_commands[Close]->setEnabled(true);
}

int TalWaveGraphPE::runDialog(QDialog& dialog)
{
    return m_runDialog ? m_runDialog(dialog) : dialog.exec();
}

void TalWaveGraphPE::exportData()
{
    if (!m_capture.isOpen())
        return;
    m_status->setText(userText("503435", "Copying waveform sample data..."));
    const QString text = WaveExportText::text(m_capture.channels(), [](int, int) {
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return true;
    });
    m_status->clear();
    QApplication::clipboard()->setText(text);
    userMessages().show(userText("503436", "Data may be in OS`s Clipboard. Select Paste in your "
                                           "application to see the data."),
                        UserMessages::Icon::Information, windowTitle());
}

void TalWaveGraphPE::exportPicture()
{
    selWaveGraph_Export chooser(graphNames(), this);
    connect(&chooser, &selWaveGraph_Export::helpRequested, this, &TalWaveGraphPE::helpRequested);
    if (runDialog(chooser) != QDialog::Accepted || chooser.chosen() < 0)
        return;
    const QString title = userText("503437", "Export Picture");
    const QString filter = userText("503438", "PNG picture (*.png);;SVG drawing (*.svg)");
    const QString path = m_savePath ? m_savePath(title, filter)
                                    : QFileDialog::getSaveFileName(this, title, QString(), filter);
    if (path.isEmpty())
        return;
    if (!exportGraph(chooser.chosen(), path)) {
        userMessages().show(userText("503439", "The picture could not be written to ") + path +
                                u'.',
                            UserMessages::Icon::Warning, windowTitle());
    }
}

bool TalWaveGraphPE::exportGraph(int index, const QString& path)
{
    const QList<std::pair<QString, QChartView*>> graphs = viewGraphs();
    if (index < 0 || index >= graphs.size())
        return false;
    QChartView* view = graphs.at(index).second;
    if (path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
        QSvgGenerator svg;
        svg.setFileName(path);
        svg.setSize(view->size());
        svg.setViewBox(view->rect());
        svg.setTitle(graphs.at(index).first);
        QPainter painter;
        if (!painter.begin(&svg))
            return false;
        view->render(&painter);
        return painter.end();
    }
    return view->grab().save(path, "PNG");
}

void TalWaveGraphPE::printGraphs()
{
    QPrinter printer(QPrinter::HighResolution);
    if (!m_printFile.isEmpty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(m_printFile);
    } else {
        QPrintDialog dialog(&printer, this);
        if (runDialog(dialog) != QDialog::Accepted)
            return;
    }
    QList<QChartView*> views;
    for (const auto& [name, graph] : viewGraphs())
        views << graph;
    QPainter painter;
    if (!painter.begin(&printer)) {
        userMessages().show(userText("503440", "The printer could not be opened."),
                            UserMessages::Icon::Warning, windowTitle());
        return;
    }
    // Three graphs to a page, each scaled to the page width.
    const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
    const double slot = page.height() / 3;
    for (int i = 0; i < views.size(); ++i) {
        if (i > 0 && i % 3 == 0)
            printer.newPage();
        const QRectF target(0, (i % 3) * slot, page.width(), slot * 0.95);
        views.at(i)->render(&painter, target);
    }
    painter.end();
}

bool TalWaveGraphPE::showInterharmonic()
{
    if (m_busy || !m_capture.isOpen())
        return false;
    // A window that cannot be filled is told before anything starts; a wrong channel is
    // told by the analysis itself, which checks it first.
    const InterharmonicAnalysis::Preparation prepared =
        InterharmonicAnalysis::prepare(m_capture.record());
    if (!prepared.ok && m_focus >= 0 && m_focus < WaveformChannels::analogCount) {
        userMessages().show(prepared.message, UserMessages::Icon::Warning, windowTitle());
        return false;
    }
    // The steps serve the window's events; the busy flag keeps a click or a close from
    // entering while they run.
    m_busy = true;
    beginProgress(userText("505014", "Interharmonic analysis"));
    progressStep(userText("505015", "Reading the interharmonic window"));
    const WaveformCapture& capture = m_capture;
    InterharmonicAnalysis::Result result = m_interharmonic.run(
        m_capture.record(), m_capture.channels(), m_focus,
        [this, &capture](int direction, int loadChannel, WaveformChannels& rows) {
            progressStep(userText("505016", "Reading the following capture"));
            return capture.loadAdjacent(direction, loadChannel, rows);
        });
    progressStep(userText("505017", "Drawing the interharmonic graphs"));
    const bool cancelled = m_progress && m_progress->Cancelled();
    endProgress();
    m_busy = false;
    if (cancelled)
        return false;
    if (!result.ok) {
        userMessages().show(result.message, UserMessages::Icon::Warning, windowTitle());
        return false;
    }
    m_ihResult = std::move(result);
    m_ihTrace->clearCurves();
    m_ihTrace->setTitles(m_ihResult.trace.title, m_ihResult.trace.xTitle, m_ihResult.trace.yTitle);
    m_ihTrace->addCurve(m_ihResult.trace.subsetTitle, &m_ihResult.time, &m_ihResult.samples,
                        toQColor(m_settings.drawColor(m_focus)));
    m_ihTrace->setColors(toQColor(m_settings.foreColor), toQColor(m_settings.backColor));
    m_ihSpectrum->show(m_ihResult.spectrum, QColor(0, 90, 170));
    m_ihGroups->show(m_ihResult.groups, QColor(170, 60, 0));
    m_pages->setCurrentIndex(1);
    setRmsShown(m_checks[CheckRms]->isChecked());
    showInterharmonicGraph(m_ihGraph);
    refreshAnnotations();
    return true;
}

void TalWaveGraphPE::showInterharmonicGraph(int command)
{
    m_ihGraph = command;
    m_ihTrace->setVisible(command == ViewWaveform);
    m_ihSpectrum->setVisible(command == ViewSpectrum);
    m_ihGroups->setVisible(command == ViewGroups);
    refreshState();
}

void TalWaveGraphPE::setRmsShown(bool on)
{
    m_ihTrace->setTextBlock(on ? rmsText() : QString());
}

QString TalWaveGraphPE::rmsText() const
{
    // The root mean square of every recorded analog channel over the whole capture, one
    // line each ("Van = 120.00"): the level the interharmonic percentages stand against.
    const WaveformChannels& ch = m_capture.channels();
    QStringList lines;
    for (int c = 0; c < WaveformChannels::analogCount; ++c) {
        const QVector<float>& values = ch.samples.at(c);
        if (!ch.recorded.at(c) || values.isEmpty())
            continue;
        double sum = 0;
        for (const float v : values)
            sum += double(v) * v;
        lines << ch.labels.at(c) + QStringLiteral(" = ") +
                     QString::number(std::sqrt(sum / values.size()), 'f', 2);
    }
    return lines.join(u'\n');
}

void TalWaveGraphPE::beginProgress(const QString& title)
{
    if (!m_progress)
        return;
    m_progress->Start(title);
    // The steps have no count: the bar only shows that work goes on.
    m_progress->setProgressMax(0);
    m_progress->show();
}

void TalWaveGraphPE::progressStep(const QString& text)
{
    if (m_progress)
        m_progress->AddMessage(text);
    else
        m_status->setText(text);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void TalWaveGraphPE::endProgress()
{
    if (m_progress)
        m_progress->hide();
    m_status->clear();
}

void TalWaveGraphPE::editGraph()
{
    YExtentsTarget* target = nullptr;
    switch (state()) {
    case State::Interharmonic:
        target = m_ihGraph == ViewWaveform   ? static_cast<YExtentsTarget*>(m_ihTrace)
                 : m_ihGraph == ViewSpectrum ? m_ihSpectrum
                                             : m_ihGroups;
        break;
    case State::Advanced:
        target = m_composition;
        break;
    default:
        for (const Graph& g : std::as_const(m_graphs)) {
            if (g.channels.contains(m_focus))
                target = g.chart;
        }
    }
    if (target)
        editYExtents(target);
}

void TalWaveGraphPE::showCapture()
{
    if (view() == 1 && m_capture.isOpen()) {
        // The analysis read the following rows; the capture itself is read again.
        const int position = m_position;
        m_pages->setCurrentIndex(0);
        loadAt(position);
        return;
    }
    m_pages->setCurrentIndex(0);
    m_commands[Close]->setText(m_zoomStack.isEmpty() ? userText("503402", "&Close")
                                                     : userText("503434", "&CLOSE"));
    showStatistics();
    refreshState();
}

QList<WaveCompositionItem> TalWaveGraphPE::compositionCandidates()
{
    QList<WaveCompositionItem> items;
    auto addCapture = [&items](const WaveformCapture& capture, int input) {
        const WaveformRecord& r = capture.record();
        for (int c = 0; c < WaveformChannels::analogCount; ++c) {
            if (!capture.channels().recorded.at(c))
                continue;
            WaveCompositionItem item;
            item.input = input;
            item.groupIndex = r.recCounter;
            item.itemIndex = c;
            item.dateTime = r.triggerTime;
            item.ms = r.triggerMs;
            item.device = r.hardwareName;
            item.item = capture.channels().labels.at(c);
            const QVector<float>& time = capture.channels().time;
            item.durationMs = time.isEmpty() ? 0 : time.last() - time.first();
            items << item;
        }
    };
    addCapture(m_capture, m_position);
    // The neighbours in the grid's series are the captures a user compares most.
    for (int neighbour : {m_position - 1, m_position + 1}) {
        if (neighbour < 0 || neighbour >= m_series.size())
            continue;
        WaveformCapture other;
        if (other.open(m_scratch, m_numbers, m_series.at(neighbour)))
            addCapture(other, neighbour);
    }
    return items;
}

void TalWaveGraphPE::showCompositionSetup()
{
    if (!m_capture.isOpen())
        return;
    const double start =
        m_marks.bothSet() ? std::min(*m_marks.position(1), *m_marks.position(2)) : -1;
    const double end =
        m_marks.bothSet() ? std::max(*m_marks.position(1), *m_marks.position(2)) : -1;
    WaveGraphCompSetup setup(compositionCandidates(), start, end, this);
    connect(&setup, &WaveGraphCompSetup::helpRequested, this, &TalWaveGraphPE::helpRequested);
    if (runDialog(setup) == QDialog::Accepted)
        showComposition(setup.selected());
}

void TalWaveGraphPE::showComposition(const WaveCompositionList& list)
{
    m_lastComposition = list;
    m_composition->clearCurves();
    m_compositionData.clear();
    m_compositionItems = list.items();
    // Every curve gets its own arrays, all made before the first curve points into them.
    for (const WaveCompositionItem& item : std::as_const(m_compositionItems)) {
        WaveformCapture capture;
        WaveformChannels data;
        if (!capture.open(m_scratch, m_numbers, item.groupIndex)) {
            userMessages().show(capture.message(), UserMessages::Icon::Warning, windowTitle());
            m_compositionData << data;
            continue;
        }
        const WaveformRecord& r = capture.record();
        const double step = WaveCompositionList::timeStep(r.systemFrequency, r.sampleRate);
        const QVector<float>& time = capture.channels().time;
        const QVector<float>& values = capture.channels().samples.at(item.itemIndex);
        for (int i = 0; i < values.size() && i < time.size(); ++i) {
            if (item.section && item.start >= 0 &&
                (time.at(i) < item.start || time.at(i) > item.end))
                continue;
            data.time << static_cast<float>(data.time.size() * step);
            data.samples[0] << values.at(i);
        }
        data.labels[0] = WaveCompositionList::legend(item);
        m_compositionData << data;
    }
    double width = 0;
    for (int i = 0; i < m_compositionData.size(); ++i) {
        const WaveformChannels& data = m_compositionData.at(i);
        if (data.time.isEmpty())
            continue;
        width = std::max<double>(width, data.time.last());
        m_composition->addCurve(data.labels.at(0), &data.time, &data.samples.at(0),
                                toQColor(m_settings.drawColor(i)));
    }
    m_composition->setProperty("fullWidth", width);
    const int firstChannel =
        m_compositionItems.isEmpty() ? 0 : m_compositionItems.first().itemIndex;
    m_composition->setTitles(userText("503442", "Advanced Waveform Analysis"),
                             WaveGraphTexts::timeTitle(),
                             WaveGraphTexts::axisTitle(firstChannel, 60));
    m_composition->setColors(toQColor(m_settings.foreColor), toQColor(m_settings.backColor));
    m_composition->setXRange(0, width > 0 ? width : 1);
    m_pages->setCurrentIndex(2);
    refreshState();
}

void TalWaveGraphPE::editSettings()
{
    WaveGraphSetup setup(m_settingsFile, this);
    connect(&setup, &WaveGraphSetup::helpRequested, this, &TalWaveGraphPE::helpRequested);
    if (runDialog(setup) != QDialog::Accepted)
        return;
    m_settings = WaveDisplaySettings::read(m_settingsFile);
    if (m_capture.isOpen())
        buildGraphs();
}

void TalWaveGraphPE::showProperties()
{
    if (!m_capture.isOpen())
        return;
    const WaveformRecord& record = m_capture.record();
    const QString picture = WaveformProperties::hookupPicture(record.hookUp, record.deviceTypeId);
    WavePropertyFrm properties(
        WaveformProperties::rows(record, std::nullopt),
        picture.isEmpty() ? QString() : m_pictureFolder + u'/' + picture + QStringLiteral(".svg"),
        this);
    connect(&properties, &WavePropertyFrm::helpRequested, this, &TalWaveGraphPE::helpRequested);
    runDialog(properties);
}

void TalWaveGraphPE::editYExtents(YExtentsTarget* chart)
{
    frmSetYExtents extents(chart, this);
    runDialog(extents);
}

void TalWaveGraphPE::showMenu(WaveStripChart* chart, int channel, double x,
                              const QPoint& globalPosition)
{
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("PopUpMenu1"));
    menu.addAction(userText("503450", "Set Mark 1"), this, [this, x] { setMark(1, x); });
    menu.addAction(userText("503451", "Set Mark 2"), this, [this, x] { setMark(2, x); });
    menu.addAction(userText("503452", "Clear Marks"), this, &TalWaveGraphPE::clearMarks);
    QMenu* zoomModes = menu.addMenu(userText("503453", "Zoom Modes"));
    const std::array<std::pair<QString, WaveStripChart::ZoomMode>, 3> modes{{
        {userText("503454", "Horizontal"), WaveStripChart::ZoomMode::Horizontal},
        {userText("503455", "Vertical"), WaveStripChart::ZoomMode::Vertical},
        {userText("503456", "Horizontal && Vertical"), WaveStripChart::ZoomMode::Both},
    }};
    for (const auto& [caption, mode] : modes) {
        QAction* action = zoomModes->addAction(caption, this, [this, mode] {
            m_zoomMode = mode;
            for (const Graph& g : std::as_const(m_graphs))
                g.chart->setZoomMode(mode);
        });
        action->setCheckable(true);
        action->setChecked(m_zoomMode == mode);
    }
    menu.addSeparator();
    menu.addAction(userText("503457", "Waveform Properties"), this,
                   &TalWaveGraphPE::showProperties);
    menu.addAction(userText("503458", "Export Data"), this, &TalWaveGraphPE::exportData);
    menu.addAction(userText("503459", "Export Graph"), this, &TalWaveGraphPE::exportPicture);
    menu.addAction(userText("503460", "Print Graph"), this, &TalWaveGraphPE::printGraphs);
    menu.addAction(userText("503461", "Reverse Color"), chart, &WaveStripChart::reverseColors);
    QMenu* note = menu.addMenu(userText("503462", "User Anotation"));
    note->addAction(userText("503463", "Add/Edit"), this, [this] {
        bool ok = false;
        const QString text = QInputDialog::getText(this, userText("503462", "User Anotation"),
                                                   QString(), QLineEdit::Normal, m_userNote, &ok);
        if (ok) {
            m_userNote = text;
            m_placingNote = true;
        }
    });
    note->addAction(userText("503464", "Set Location"), this, [this] { m_placingNote = true; });
    note->addAction(userText("503465", "Clear"), this, [this] {
        m_userNote.clear();
        m_userNotePosition.reset();
        refreshAnnotations();
    });
    menu.addAction(userText("503466", "Undo Zoom"), this, &TalWaveGraphPE::undoZoom)
        ->setEnabled(!m_zoomStack.isEmpty());

    QMenu* ih = menu.addMenu(userText("503467", "Interharmonic Analysis"));
    ih->addAction(userText("503468", "200ms Before"))->setEnabled(false);
    ih->addAction(userText("503469", "Show"), this, &TalWaveGraphPE::showInterharmonic);
    QAction* place = ih->addAction(userText("503470", "Place mark"), this, [this, x] {
        const double step = stepMs();
        const InterharmonicAnalysis::Preparation prepared =
            InterharmonicAnalysis::placeMark(m_capture.record(), step > 0 ? x / step : 0);
        if (!prepared.ok)
            userMessages().show(prepared.message, UserMessages::Icon::Warning, windowTitle());
        refreshAnnotations();
    });
    place->setEnabled(channel < WaveformChannels::analogCount);
    ih->addAction(userText("503471", "Reset mark"), this, [this] {
        m_capture.record().windowStart = 0;
        refreshAnnotations();
    });
    auto frequencyActions = [this](QMenu* into) {
        for (const int hz : {50, 60}) {
            QAction* action = into->addAction(
                hz == 50 ? userText("503472", "50Hz System") : userText("503473", "60Hz System"),
                this, [this, hz] {
                    m_interharmonic.setSystemFrequency(
                        hz, InterharmonicAnalysis::FrequencySource::Menu);
                    m_settings.interHarmonicFreq = hz;
                    WaveDisplaySettings stored = WaveDisplaySettings::read(m_settingsFile);
                    stored.interHarmonicFreq = hz;
                    stored.write(m_settingsFile);
                });
            action->setCheckable(true);
            action->setChecked(m_interharmonic.systemFrequency() == hz);
        }
    };
    frequencyActions(ih);
    QMenu* options = menu.addMenu(userText("503474", "Options"));
    options->addAction(userText("503475", "Waveform Display Setttings"), this,
                       &TalWaveGraphPE::editSettings);
    frequencyActions(options->addMenu(userText("503476", "System Frequency for Interharmonic")));
    QAction* inputs = options->addAction(userText("503477", "Show Inputs"), this,
                                         [this] { setInputsOn(!m_inputsOn); });
    inputs->setCheckable(true);
    inputs->setChecked(m_inputsOn);
    QAction* neutral = options->addAction(userText("503478", "Show Iaux"), this,
                                          [this] { setNeutralOn(!m_neutralOn); });
    neutral->setCheckable(true);
    neutral->setChecked(m_neutralOn);
    QAction* extents = menu.addAction(userText("503479", "Set Y Extents"), this,
                                      [this, chart] { editYExtents(chart); });
    extents->setObjectName(QStringLiteral("Mnu_Popup1_SetYEXTS"));
    menu.exec(globalPosition);
}

void TalWaveGraphPE::closeEvent(QCloseEvent* event)
{
    if (m_busy) {
        userMessages().show(
            userText("503480", "Please wait while Interharmonic computation finishes."),
            UserMessages::Icon::Warning, windowTitle());
        event->ignore();
        return;
    }
    QWidget::closeEvent(event);
}

} // namespace lorvane
