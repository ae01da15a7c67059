// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraph.h"

#include "PGSelColor.h"
#include "PGSelLabel.h"
#include "PGraphCanvas.h"
#include "PGraphFailure.h"
#include "PGraphPanel.h"
#include "graph/ui/GraphOutput.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "powergraph/PGraphExport.h"
#include "powergraph/PGraphSettings.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStatusBar>

namespace lorvane {

namespace {

PGraphSession::Direction direction(bool forward)
{
    return forward ? PGraphSession::Direction::Forward : PGraphSession::Direction::Reverse;
}

} // namespace

PGraph::PGraph(QString settingsFile, QWidget* parent)
    : QMainWindow(parent), m_settingsFile(std::move(settingsFile)),
      m_autoShow(*this,
                 [this](bool forward) {
                     if (!m_session || !m_session->step(direction(forward)))
                         return false;
                     showView();
                     return true;
                 }),
      m_printTarget(
          [this](QWidget* picture) { return GraphOutput::printWithPreview(picture, this); })
{
    setAttribute(Qt::WA_DeleteOnClose);
    auto* central = new QWidget(this);
    auto* layout = new QHBoxLayout(central);
    m_canvas = new PGraphCanvas(central);
    m_panel = new PGraphPanel(central);
    m_panel->setFixedWidth(340);
    layout->addWidget(m_canvas, 1);
    layout->addWidget(m_panel);
    setCentralWidget(central);
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    connect(&m_timer1, &QTimer::timeout, this, [this] {
        guarded([this] { m_autoShow.tick(); });
        if (!m_autoShow.running()) {
            const QSignalBlocker block(m_panel->autoShow);
            m_panel->autoShow->setChecked(false);
        }
    });
    buildMenus();
    connectPanel();
    resize(1100, 700);
}

PGraph::~PGraph()
{
    m_timer1.stop();
}

void PGraph::buildMenus()
{
    QMenu* file = menuBar()->addMenu(userText("801040", "&File"));
    file->addAction(userText("801041", "&Print"), this, &PGraph::print);
    file->addAction(userText("801042", "&Export Data..."), this, [this] {
        const QString path = QFileDialog::getSaveFileName(
            this, userText("801042", "&Export Data...").remove(QLatin1Char('&')), {},
            QStringLiteral("CSV (*.csv)"));
        if (!path.isEmpty())
            exportData(path);
    });
    file->addAction(userText("801043", "&Copy"), QKeySequence::Copy, this, &PGraph::copyPicture);
    file->addSeparator();
    file->addAction(userText("801034", "C&lose"), this, &QWidget::close);
    QMenu* options = menuBar()->addMenu(userText("801044", "&Options"));
    options->addAction(userText("801045", "&Select Colors"), this, &PGraph::selectColors);
    options->addAction(userText("801046", "&User Labels"), this, &PGraph::userLabels);
    QMenu* help = menuBar()->addMenu(userText("801047", "&Help"));
    help->addAction(userText("801047", "&Help"), this,
                    [this] { emit helpRequested(QStringLiteral("LRPowerGraph")); });
}

void PGraph::connectPanel()
{
    PGraphPanel* p = m_panel;
    connect(p->redraw, &QPushButton::clicked, this, [this] { guarded([this] { redraw(); }); });
    connect(p->print, &QPushButton::clicked, this, &PGraph::print);
    connect(p->close, &QPushButton::clicked, this, &QWidget::close);
    connect(p->next, &QPushButton::clicked, this, [this] { step(true); });
    connect(p->previous, &QPushButton::clicked, this, [this] { step(false); });
    connect(p->forward, &QRadioButton::toggled, this,
            [this](bool on) { m_autoShow.setForward(on); });
    connect(p->speed, &QSlider::valueChanged, this, [this](int v) { m_autoShow.setSpeed(v); });
    connect(p->autoShow, &QCheckBox::toggled, this, [this](bool on) {
        if (on && m_session && redraw())
            m_autoShow.start();
        else
            m_autoShow.stop();
        if (on && !m_autoShow.running()) {
            const QSignalBlocker block(m_panel->autoShow);
            m_panel->autoShow->setChecked(false);
        }
    });
    auto option = [this](QCheckBox* box, bool PGraphView::*flag) {
        connect(box, &QCheckBox::toggled, this, [this, flag](bool on) {
            if (!m_session)
                return;
            m_session->view().*flag = on;
            m_canvas->update();
        });
    };
    option(p->moveBySample, &PGraphView::moveBySample);
    option(p->useSymbols, &PGraphView::useSymbols);
    option(p->colorPrintout, &PGraphView::colorPrintout);
}

void PGraph::ShowPowerGraph(QList<PGraphItem> items, PGraphView::Kind kind)
{
    m_defaults = PGraphModule::LoadPowerGraphDefaults(m_settingsFile);
    const PGraphSettings stored = PGraphSettings::read(m_settingsFile);
    PGraphView view;
    view.kind = kind;
    view.maxY = stored.maxY;
    view.minY = stored.minY;
    // A stored span outside the accepted range opens with the default instead.
    view.numDaysView = PGraphSession::checkNumDays(stored.numDaysView) ? 1.0 : stored.numDaysView;
    for (int i = 0; i < items.size(); ++i)
        items[i].color = m_defaults.of(kind).at(size_t(i) % PowerGraphDefaults::foreground);
    m_session = std::make_unique<PGraphSession>(std::move(items), view);
    m_panel->saveSettings->setChecked(stored.saveSettings);
    m_autoShow.setSpeed(m_panel->speed->value());
    setWindowTitle(kind == PGraphView::Kind::Circular ? userText("801050", "Circular Graph")
                                                      : userText("801051", "XY Graph"));
    applyDefaults();
    m_canvas->setSession(m_session.get());
    showView();
}

void PGraph::applyDefaults()
{
    if (!m_session)
        return;
    m_session->view().comment = m_defaults.comment;
    m_canvas->setPalette(PGraphPalette(m_defaults.of(m_session->view().kind), false));
}

bool PGraph::redraw()
{
    if (!m_session)
        return false;
    if (const std::optional<QString> refused = m_session->apply(m_panel->entries())) {
        userMessages().show(*refused, UserMessages::Icon::Warning);
        return false;
    }
    showView();
    return true;
}

void PGraph::showView()
{
    m_panel->setEntries(m_session->entries());
    m_panel->setRecords(m_session->recordsInView());
    m_canvas->update();
}

void PGraph::step(bool forward)
{
    guarded([this, forward] {
        if (!m_session || !redraw())
            return;
        if (m_session->step(direction(forward)))
            showView();
        else
            userMessages().beep(); // no records lie beyond the view that way
    });
}

void PGraph::setPrintTarget(std::function<bool(QWidget* picture)> target)
{
    m_printTarget = std::move(target);
}

QString PGraph::waitText() const
{
    return statusBar()->currentMessage();
}

void PGraph::print()
{
    guarded([this] {
        if (m_autoShow.running()) {
            userMessages().show(userText("801060", "You cannot print while Auto Show is running"));
            return;
        }
        if (!m_session || m_session->totalRecords() == 0) {
            userMessages().show(userText("801061", "There are no data to print") +
                                QLatin1Char('.'));
            return;
        }
        statusBar()->showMessage(userText("801062", "Updating chart. Please wait"));
        const PGraphPalette screen = m_canvas->graphPalette();
        m_canvas->setPalette(
            PGraphPalette(m_defaults.of(m_session->view().kind), !m_session->view().colorPrintout));
        m_printTarget(m_canvas);
        m_canvas->setPalette(screen);
        statusBar()->clearMessage();
    });
}

bool PGraph::exportData(const QString& path)
{
    QFile file(path);
    if (!m_session || !file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text) ||
        file.write(PGraphExport::csv(m_session->items()).toUtf8()) < 0) {
        userMessages().show(userText("801063", "The records could not be written to") +
                                QStringLiteral(" ") + path + QStringLiteral(": ") +
                                file.errorString(),
                            UserMessages::Icon::Warning);
        return false;
    }
    return true;
}

void PGraph::copyPicture()
{
    guarded([this] {
        GraphOutput::copyToClipboard(m_canvas);
        userMessages().show(
            userText("801064", "A Bitmap of the Graph is now in the Windows clipboard"));
    });
}

void PGraph::selectColors()
{
    guarded([this] {
        PGSelColor dialog(m_settingsFile, this);
        if (m_session)
            dialog.setKind(m_session->view().kind);
        dialog.exec();
        m_defaults = PGraphModule::LoadPowerGraphDefaults(m_settingsFile);
        applyDefaults();
        m_canvas->update();
    });
}

void PGraph::userLabels()
{
    guarded([this] {
        PGSelLabel dialog(m_settingsFile, this);
        dialog.exec();
        m_defaults = PGraphModule::LoadPowerGraphDefaults(m_settingsFile);
        applyDefaults();
        m_canvas->update();
    });
}

void PGraph::start(int intervalMs)
{
    m_timer1.start(intervalMs);
}

void PGraph::stop()
{
    m_timer1.stop();
}

void PGraph::closeEvent(QCloseEvent* event)
{
    // The timer ends before the window: no tick may reach a closing window.
    m_autoShow.stop();
    m_timer1.stop();
    guarded([this] {
        if (!m_session)
            return;
        PGraphSettings settings;
        settings.saveSettings = m_panel->saveSettings->isChecked();
        settings.numDaysView = m_session->view().numDaysView;
        settings.maxY = m_session->view().maxY;
        settings.minY = m_session->view().minY;
        if (!settings.saveOnClose(m_settingsFile))
            userMessages().show(userText("801065", "The settings could not be saved to") +
                                    QStringLiteral(" ") + m_settingsFile,
                                UserMessages::Icon::Warning);
    });
    event->accept();
}

void PGraph::guarded(const std::function<void()>& work)
{
    try {
        work();
    } catch (const std::exception& e) {
        m_autoShow.stop();
        userMessages().show(powerGraphFailure(e), UserMessages::Icon::Critical);
    } catch (...) {
        m_autoShow.stop();
        userMessages().show(userText("801066", "The power graph met an unknown fault."),
                            UserMessages::Icon::Critical);
    }
}

} // namespace lorvane
