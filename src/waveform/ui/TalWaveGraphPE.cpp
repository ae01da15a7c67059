// SPDX-License-Identifier: GPL-3.0-or-later
#include "TalWaveGraphPE.h"

#include "WaveCapturePage.h"
#include "WaveCompositionPage.h"
#include "WaveGraphButtons.h"
#include "WaveGraphMenu.h"
#include "WaveInterharmonicPage.h"
#include "app/RunContext.h"
#include "graph/ui/CloseAfterWork.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "platform/WorkGuard.h"
#include "store/TempQueryDatabase.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace lorvane {

TalWaveGraphPE::TalWaveGraphPE(RunContext& context, QWidget* parent)
    : TalWaveGraphPE(context.scratch->database(), context.paths.settingsFile, context.work, parent)
{
    m_pictureFolder = context.paths.pictureFolder();
}

TalWaveGraphPE::TalWaveGraphPE(SqliteDatabase& scratch, QString settingsFile, WorkGuard& work,
                               QWidget* parent)
    : QWidget(parent), m_session(scratch, WaveDisplaySettings::read(settingsFile)),
      m_settingsFile(std::move(settingsFile)), m_work(work),
      m_dialogs(this, [this](const QString& topic) { emit helpRequested(topic); }),
      m_status(new QLabel), m_progress(m_status),
      m_reading(new WaveCaptureJob(m_session, scratch.path(), work, m_status))
{
    build();
}

TalWaveGraphPE::~TalWaveGraphPE() = default;

void TalWaveGraphPE::build()
{
    auto* layout = new QVBoxLayout(this);
    m_buttons = new WaveGraphButtons;
    layout->addWidget(m_buttons);
    m_pages = new QStackedWidget;
    m_capturePage = new WaveCapturePage(m_session);
    m_ihPage = new WaveInterharmonicPage;
    m_compositionPage = new WaveCompositionPage;
    m_pages->addWidget(m_capturePage);
    m_pages->addWidget(m_ihPage);
    m_pages->addWidget(m_compositionPage);
    layout->addWidget(m_pages, 1);
    auto* statusLine = new QHBoxLayout;
    statusLine->addWidget(m_status, 1);
    statusLine->addWidget(m_reading);
    layout->addLayout(statusLine);
    m_buttons->connectTo(*this);
    connectPages();
    refreshState();
    resize(1100, 900);
}

void TalWaveGraphPE::connectPages()
{
    connect(m_capturePage, &WaveCapturePage::clicked, this, [this](int channel, double x) {
        if (m_placingNote) {
            m_placingNote = false;
            m_session.placeNote(x);
            refresh();
            return;
        }
        clickAt(channel, x);
    });
    connect(m_capturePage, &WaveCapturePage::zoomRequested, this,
            [this](WaveStripChart* chart, double x0, double x1, double y0, double y1) {
                if (m_zoomMode != WaveStripChart::ZoomMode::Horizontal)
                    chart->setManualY(y0, y1);
                if (m_zoomMode != WaveStripChart::ZoomMode::Vertical)
                    zoomTo(x0, x1);
            });
    connect(m_capturePage, &WaveCapturePage::menuRequested, this,
            [this](WaveStripChart* chart, int channel, double x, const QPoint& at) {
                WaveGraphMenu(*this, chart, channel, x).exec(at);
            });
    connect(m_capturePage, &WaveCapturePage::scrolled, this, &TalWaveGraphPE::refreshState);
    connect(m_compositionPage, &WaveCompositionPage::menuRequested, this,
            [this](double x, const QPoint& at) {
                WaveGraphMenu(*this, m_compositionPage->chart(), -1, x).exec(at);
            });
}

bool TalWaveGraphPE::open(const QueryNumbers& numbers, const QList<qint32>& series, int position,
                          const QString& rangeText)
{
    return !m_work.busy() && load(m_session.requestOpen(numbers, series, position, rangeText));
}

void TalWaveGraphPE::step(int delta)
{
    load(m_session.requestStep(delta));
}

bool TalWaveGraphPE::load(const WaveGraphSession::Request& request)
{
    if (!request.read) {
        m_dialogs.tell(request.refusal.message, request.refusal.warning);
        return false;
    }
    // The buttons and pages wait for the capture; the window repaints and the cancel of the
    // read stays at hand.
    const auto waiting = [this](bool on) {
        m_buttons->setEnabled(!on);
        m_pages->setEnabled(!on);
    };
    const bool started = m_reading->start(*request.read, [this, waiting](const auto& outcome) {
        waiting(false);
        if (outcome.ok) {
            setWindowTitle(m_session.windowTitle());
            m_capturePage->rebuild([this](int strip) {
                m_reading->status(userText("501013", "Seting Up Graph ") + QString::number(strip));
            });
            m_reading->status(userText("501014", "Draw the graphs"));
            m_capturePage->setZoomMode(m_zoomMode);
            m_pages->setCurrentIndex(0);
        }
        m_dialogs.tell(outcome.message, outcome.warning);
        refresh();
        // A first capture that failed or was cancelled leaves nothing to show.
        if (!m_session.isOpen())
            close();
    });
    waiting(started);
    return started;
}

void TalWaveGraphPE::refresh()
{
    if (view() == 2)
        m_compositionPage->refresh();
    else
        m_capturePage->refresh();
    refreshState();
}

void TalWaveGraphPE::refreshState()
{
    const State now = state();
    const WaveGraphButtons::Set set = now == State::Global ? WaveGraphButtons::Set::Main
                                      : now == State::Interharmonic
                                          ? WaveGraphButtons::Set::Interharmonic
                                          : WaveGraphButtons::Set::View;
    m_buttons->refresh(set, m_session, view() == 0 && m_session.zoom().depth() > 0,
                       ViewWaveform + int(m_ihPage->graph()));
}

TalWaveGraphPE::State TalWaveGraphPE::state() const
{
    static constexpr std::array<State, 3> views{State::Global, State::Interharmonic,
                                                State::Advanced};
    const State shown = views.at(view());
    return shown == State::Global && m_session.detailsOn() ? State::Detail : shown;
}

int TalWaveGraphPE::view() const
{
    return m_pages->currentIndex();
}

void TalWaveGraphPE::clickAt(int channel, double x)
{
    // A click that arrives while a run serves events waits for its end.
    if (m_work.busy() || !m_session.isOpen())
        return;
    m_session.click(channel, x);
    refresh();
}

void TalWaveGraphPE::setMark(int number, double x)
{
    (view() == 2 ? m_compositionPage->marks() : m_session.marks()).set(number, x);
    refresh();
}

void TalWaveGraphPE::clearMarks()
{
    if (!userMessages().ask(userText("503432", "Are you sure you want to clear the markers?"),
                            windowTitle()))
        return;
    (view() == 2 ? m_compositionPage->marks() : m_session.marks()).clear();
    refresh();
}

void TalWaveGraphPE::zoomTo(double x0, double x1)
{
    if ((view() == 2 ? m_compositionPage->zoom() : m_session.zoom()).zoomTo(x0, x1))
        refresh();
}

void TalWaveGraphPE::undoZoom()
{
    if ((view() == 2 ? m_compositionPage->zoom() : m_session.zoom()).undo())
        refresh();
}

void TalWaveGraphPE::zoomOutAll()
{
    if (view() == 1)
        m_ihPage->zoomOut();
    else if (view() == 2)
        m_compositionPage->zoomOut();
    else
        m_capturePage->zoomOut();
    refresh();
}

void TalWaveGraphPE::setZoomMode(WaveStripChart::ZoomMode mode)
{
    m_zoomMode = mode;
    m_capturePage->setZoomMode(mode);
    m_compositionPage->chart()->setZoomMode(mode);
}

void TalWaveGraphPE::setToggle(void (WaveGraphSession::*toggle)(bool), bool on)
{
    (m_session.*toggle)(on);
    refresh();
}

QList<std::pair<QString, QChartView*>> TalWaveGraphPE::viewGraphs() const
{
    if (view() == 1)
        return m_ihPage->graphs();
    if (view() == 2)
        return {{m_compositionPage->chart()->chart()->title(), m_compositionPage->chart()}};
    return m_capturePage->graphs();
}

QStringList TalWaveGraphPE::graphNames() const
{
    QStringList names;
    for (const auto& [name, graph] : viewGraphs())
        names << name;
    return names;
}

void TalWaveGraphPE::exportData()
{
    m_progress.run(m_work, userText("505020", "Copying the samples"), true,
                   [this] { m_dialogs.exportData(m_session, windowTitle(), &m_progress); });
}

void TalWaveGraphPE::exportPicture()
{
    m_dialogs.exportPicture(viewGraphs(), windowTitle());
}

void TalWaveGraphPE::printGraphs()
{
    m_dialogs.print(viewGraphs(), windowTitle());
}

void TalWaveGraphPE::editNote()
{
    m_placingNote = m_dialogs.note(m_session);
}

void TalWaveGraphPE::clearNote()
{
    m_session.clearNote();
    refresh();
}

void TalWaveGraphPE::placeInterharmonicMark(double x)
{
    m_dialogs.tell(m_session.placeInterharmonicMark(x).message, true);
    refresh();
}

void TalWaveGraphPE::resetInterharmonicMark()
{
    m_session.resetInterharmonicMark();
    refresh();
}

void TalWaveGraphPE::setInterharmonicFrequency(int hz)
{
    m_session.interharmonic().setSystemFrequency(hz, InterharmonicAnalysis::FrequencySource::Menu);
    WaveDisplaySettings::writeInterHarmonicFreq(m_settingsFile, hz);
}

bool TalWaveGraphPE::showInterharmonic()
{
    if (!m_session.isOpen())
        return false;
    // The close of the window or the frame cancels the run: it shows nothing then.
    InterharmonicAnalysis::Result result;
    if (!m_progress.run(m_work, userText("505014", "Interharmonic analysis"), true, [&] {
            m_progress.status(userText("505015", "Reading the interharmonic window"));
            result = m_session.runInterharmonic(&m_progress);
            m_progress.status(userText("505017", "Drawing the interharmonic graphs"));
        }))
        return false;
    if (!result.ok) {
        m_dialogs.tell(result.message, true);
        return false;
    }
    const float start = m_session.capture().channels().time.value(result.windowStart);
    setWindowTitle(m_session.windowTitle() + QStringLiteral(" - ") +
                   userText("505019", "Interharmonic window from %1 ms").arg(start, 0, 'f', 2));
    m_ihPage->show(std::move(result), m_session.settings(), m_session.focus());
    m_pages->setCurrentIndex(1);
    setRmsShown(m_buttons->check(CheckRms)->isChecked());
    refreshState();
    return true;
}

void TalWaveGraphPE::showInterharmonicGraph(int command)
{
    m_ihPage->showGraph(WaveInterharmonicPage::Graph(command - ViewWaveform));
    refreshState();
}

void TalWaveGraphPE::setRmsShown(bool on)
{
    m_ihPage->setRms(on ? m_session.captureRms() : QList<std::pair<QString, double>>());
}

void TalWaveGraphPE::showCapture()
{
    setWindowTitle(m_session.windowTitle());
    m_pages->setCurrentIndex(0);
    refresh();
}

void TalWaveGraphPE::showCompositionSetup()
{
    if (m_session.isOpen() && m_dialogs.compositionSetup(m_session))
        showComposition();
}

void TalWaveGraphPE::showComposition()
{
    // Each item's capture is opened afresh, with events served: long work like a load.
    QStringList failures;
    QList<WaveGraphSession::CompositionCurve> curves;
    if (!m_progress.run(m_work, userText("505013", "Opening the waveform capture"), false,
                        [&] { curves = m_session.compositionCurves(failures, &m_progress); }))
        return;
    m_compositionPage->show(std::move(curves), m_session.settings());
    for (const QString& failure : std::as_const(failures))
        m_dialogs.tell(failure, true);
    m_pages->setCurrentIndex(2);
    refreshState();
}

void TalWaveGraphPE::editSettings()
{
    if (!m_dialogs.settings(m_settingsFile))
        return;
    m_session.setSettings(WaveDisplaySettings::read(m_settingsFile));
    if (m_session.isOpen())
        m_capturePage->rebuild();
    refresh();
}

void TalWaveGraphPE::showProperties()
{
    m_dialogs.properties(m_session, m_pictureFolder);
}

void TalWaveGraphPE::editYExtents(YExtentsTarget* chart)
{
    m_dialogs.yExtents(chart);
}

void TalWaveGraphPE::editGraph()
{
    YExtentsTarget* target = view() == 1   ? m_ihPage->shownTarget()
                             : view() == 2 ? m_compositionPage->chart()
                                           : m_capturePage->focusStrip();
    if (target)
        editYExtents(target);
}

void TalWaveGraphPE::closeEvent(QCloseEvent* event)
{
    // Running work is asked to stop; the window closes once it has.
    if (CloseAfterWork::defer(m_work, this))
        event->ignore();
    else
        QWidget::closeEvent(event);
}

} // namespace lorvane
