// SPDX-License-Identifier: GPL-3.0-or-later
#include "frmGraphView.h"

#include "TrendAxisBar.h"
#include "TrendAxisTarget.h"
#include "TrendCapturePanel.h"
#include "TrendCommandBar.h"
#include "TrendPreviewCanvas.h"
#include "TrendPrintPage.h"
#include "TrendRangeDialog.h"
#include "TrendTab.h"
#include "graph/ui/GraphOutput.h"
#include "platform/ProfileFile.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "store/DataPointLabel.h"
#include "trend/TrendColors.h"
#include "trend/TrendTexts.h"
#include "trend/TrendTime.h"
#include "waveform/ui/frmSetYExtents.h"

#include <QActionGroup>
#include <QColorDialog>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace lorvane {

frmGraphView::frmGraphView(WorkGuard& work, SqliteDatabase* dictionary,
                           const QString& graphSettingsFile, QWidget* parent)
    : QWidget(parent), m_session(TrendColors::read(ProfileFile(graphSettingsFile))), m_work(work),
      m_dictionary(dictionary), m_commands(new TrendCommandBar), m_tabs(new QTabWidget),
      m_capture(new TrendCapturePanel), m_axisBar(new TrendAxisBar), m_status(new QLabel),
      m_progress(m_status)
{
    setObjectName(QStringLiteral("frmGraphView"));
    setWindowTitle(userText("701080", "Trend Graph"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_commands);
    auto* middle = new QHBoxLayout;
    middle->addWidget(m_tabs, 1);
    middle->addWidget(m_capture);
    m_capture->setVisible(false);
    layout->addLayout(middle, 1);
    layout->addWidget(m_axisBar);
    layout->addWidget(m_status);
    m_chooseColour = [this](const QColor& now, const QString& title) -> std::optional<QColor> {
        const QColor chosen = QColorDialog::getColor(now, this, title);
        return chosen.isValid() ? std::optional<QColor>(chosen) : std::nullopt;
    };
    buildMenus();
    connectParts();
    resize(1100, 760);
}

QAction* frmGraphView::menuAction(const QString& name) const
{
    return findChild<QAction*>(name);
}

TrendTab* frmGraphView::tab(int index) const
{
    return qobject_cast<TrendTab*>(m_tabs->widget(index));
}

void frmGraphView::buildMenus()
{
    auto* bar = new QMenuBar;
    layout()->setMenuBar(bar);
    auto add = [this](QMenu* menu, const char* name, const QString& text,
                      const std::function<void()>& press) {
        QAction* action = menu->addAction(text);
        action->setObjectName(QString::fromLatin1(name));
        connect(action, &QAction::triggered, this, [this, press] { guarded(press); });
        return action;
    };
    QMenu* file = bar->addMenu(userText("701081", "&File"));
    add(file, "IDM_FILE_PRINT", userText("701082", "&Print..."), [this] {
        std::unique_ptr<QWidget> page(makePrintPage());
        GraphOutput::printWithPreview(page.get(), this);
    });
    add(file, "IDM_FILE_EXPORT", userText("701083", "&Export Picture..."), [this] {
        const QString path =
            QFileDialog::getSaveFileName(this, userText("701083", "&Export Picture..."), QString(),
                                         QStringLiteral("PNG (*.png);;SVG (*.svg);;PDF (*.pdf)"));
        if (!path.isEmpty() && !GraphOutput::save(m_tabs->currentWidget(), path))
            showMessage(userText("701084", "The picture could not be written: ") + path);
    });
    add(file, "IDM_FILE_DEL", userText("701085", "&Close View"), [this] { closeCurrentView(); });
    add(file, "IDM_FILE_CLOSE", userText("701086", "Close &Window"), [this] { close(); });

    QMenu* view = bar->addMenu(userText("701087", "&View"));
    auto* types = new QActionGroup(this);
    const std::tuple<const char*, const char*, const char*, TrendGraphType> kinds[] = {
        {"IDM_VIEW_GTYPE_LINE", "701088", "&Line", TrendGraphType::Line},
        {"IDM_VIEW_GTYPE_BAR", "701089", "&Bar", TrendGraphType::Bar},
        {"IDM_VIEW_GTYPE_POINT", "701090", "&Point", TrendGraphType::Point},
    };
    for (const auto& [name, id, text, type] : kinds) {
        const TrendGraphType kind = type;
        QAction* action = add(view, name, userText(id, text), [this, kind] {
            if (const QString refusal = m_session.setGraphType(kind); !refusal.isEmpty())
                showMessage(refusal);
            regraph();
        });
        action->setCheckable(true);
        action->setChecked(kind == TrendGraphType::Line);
        types->addAction(action);
    }
    QMenu* tools = bar->addMenu(userText("701091", "&Tools"));
    QAction* capture = add(tools, "IDM_TOOLS_DATACAP", userText("701092", "&Data Capture"),
                           [this] { m_capture->setVisible(!m_capture->isVisible()); });
    capture->setCheckable(true);
    add(tools, "IDM_TOOLS_LEFTAXIS", userText("701093", "&Left Axis Extents..."),
        [this] { editAxis(TrendAxis::Left); });
    add(tools, "IDM_TOOLS_RIGHTAXIS", userText("701094", "&Right Axis Extents..."),
        [this] { editAxis(TrendAxis::Right); });
    m_axisMenu = tools->addMenu(userText("701095", "Sets on the Right &Axis"));
}

void frmGraphView::connectParts()
{
    connect(m_commands, &TrendCommandBar::stepRequested, this, [this](TrendCommand command) {
        guarded([&] {
            if (m_session.run(command))
                showExtents();
        });
    });
    connect(m_commands, &TrendCommandBar::extentsRequested, this, [this](ExtentsRule rule) {
        guarded([&] {
            m_session.applyExtents(rule);
            showExtents();
        });
    });
    connect(m_commands, &TrendCommandBar::pointsToggled, this, [this] {
        guarded([&] {
            const bool points =
                !m_session.empty() && m_session.view().type == TrendGraphType::Point;
            m_session.setGraphType(points ? TrendGraphType::Line : TrendGraphType::Point);
            regraph();
        });
    });
    connect(m_commands, &TrendCommandBar::rangeRequested, this,
            [this] { guarded([this] { chooseRange(); }); });
    connect(m_commands, &TrendCommandBar::regraphRequested, this,
            [this] { guarded([this] { regraph(); }); });
    connect(m_tabs, &QTabWidget::currentChanged, this, [this](int index) {
        guarded([&] {
            if (index >= 0 && index < m_session.views().size()) {
                m_session.setActive(index);
                showExtents();
            }
        });
    });
    connect(m_capture, &TrendCapturePanel::stepRequested, this, [this](bool forward, int focus) {
        guarded([&] {
            const TrendSession::Capture capture = m_session.step(forward, focus);
            if (!capture.message.isEmpty())
                showMessage(capture.message);
            m_capture->showCapture(capture);
            showExtents();
        });
    });
    connect(m_capture, &TrendCapturePanel::generateRequested, this,
            [this](const MsViewRequest& request) {
                guarded([&] {
                    if (const QString refusal = m_session.generateMsView(request);
                        !refusal.isEmpty()) {
                        showMessage(refusal);
                        return;
                    }
                    regraph();
                });
            });
    connect(m_axisBar, &TrendAxisBar::axisValueEntered, this,
            [this](TrendAxis axis, bool high, const QString& text) {
                guarded([&] {
                    // A refused value puts the box back to what the axis shows.
                    m_session.setAxisValue(axis, high, text);
                    showExtents();
                });
            });
    connect(m_axisBar, &TrendAxisBar::intervalGapEntered, this, [this](double days) {
        guarded([&] {
            m_session.setIntervalGap(days);
            regraph();
        });
    });
    connect(m_axisBar, &TrendAxisBar::colourClicked, this,
            [this](TrendAxisBar::Colour which) { guarded([&] { chooseColour(which); }); });
}

bool frmGraphView::showGraph(const TrendRequest& request)
{
    QString message = TrendSession::check(request);
    if (message.isEmpty()) {
        bool failed = true;
        guarded([&] {
            const auto namer = [this](const GraphSet& set) {
                const QString name = m_dictionary ? DataPointLabel::text(*m_dictionary, set.dataId)
                                                  : QString::number(set.dataId);
                return set.meter > 0 ? name + QStringLiteral(" (2)") : name;
            };
            m_progress.run(m_work, userText("701096", "Loading the trend"), true,
                           [&] { message = m_session.show(request, m_progress, namer); });
            failed = false;
        });
        if (failed)
            return false;
    }
    if (!message.isEmpty()) {
        showMessage(message);
        return false;
    }
    if (m_session.empty())
        return false;
    regraph();
    return true;
}

void frmGraphView::guarded(const std::function<void()>& press)
{
    try {
        press();
    } catch (const std::exception& e) {
        userMessages().show(QString::fromUtf8(e.what()), UserMessages::Icon::Warning);
    } catch (...) {
        userMessages().show(userText("701097", "The trend command failed."),
                            UserMessages::Icon::Warning);
    }
}

void frmGraphView::showMessage(const QString& text)
{
    userMessages().show(text, UserMessages::Icon::Information);
}

void frmGraphView::regraph()
{
    if (m_session.empty())
        return;
    const QSignalBlocker block(m_tabs);
    while (m_tabs->count() > m_session.views().size())
        delete m_tabs->widget(m_tabs->count() - 1);
    for (int i = 0; i < m_session.views().size(); ++i) {
        if (i >= m_tabs->count()) {
            auto* page = new TrendTab;
            m_tabs->addTab(page, m_session.views().at(i).name);
            connect(page, &TrendTab::viewportXAsked, this, [this](const AxisRange& x) {
                guarded([&] {
                    m_session.setViewportX(x);
                    showExtents();
                });
            });
            connect(page, &TrendTab::viewportZoomed, this,
                    [this](const TrendExtentsOfGraph& shown) {
                        guarded([&] {
                            m_session.setViewportX(shown.x);
                            m_session.setViewportY(TrendAxis::Left, shown.left);
                            m_session.setViewportY(TrendAxis::Right, shown.right);
                            showExtents();
                        });
                    });
            connect(page, &TrendTab::cursorMoved, this, [this](double x) {
                m_session.setCursor(x);
                m_capture->setStart(x);
            });
        }
        m_tabs->setTabText(i, m_session.views().at(i).name);
    }
    m_tabs->setCurrentIndex(m_session.active());
    tab(m_session.active())->showView(m_session, m_session.active());
    QStringList names;
    for (const GraphSet& set : m_session.view().sets)
        names << set.name;
    m_capture->setSets(names);
    fillAxisMenu();
    showExtents();
}

void frmGraphView::showExtents()
{
    if (m_session.empty())
        return;
    tab(m_session.active())->showExtents(m_session.view());
    m_axisBar->showView(m_session.view());
}

void frmGraphView::fillAxisMenu()
{
    m_axisMenu->clear();
    const QList<GraphSet>& sets = m_session.view().sets;
    for (int i = 0; i < sets.size(); ++i) {
        QAction* action = m_axisMenu->addAction(sets.at(i).name);
        action->setCheckable(true);
        action->setChecked(sets.at(i).axis == TrendAxis::Right);
        connect(action, &QAction::toggled, this, [this, i](bool right) {
            guarded([&] {
                m_session.setAxis(i, right ? TrendAxis::Right : TrendAxis::Left);
                regraph();
            });
        });
    }
}

void frmGraphView::setRange(const QDateTime& from, const QDateTime& to)
{
    if (m_session.empty() || m_session.view().milliseconds)
        return;
    if (m_session.setViewportX({TrendTime::of(from), TrendTime::of(to)}))
        showExtents();
}

void frmGraphView::chooseRange()
{
    if (m_session.empty())
        return;
    const AxisRange& x = m_session.view().viewport.x;
    TrendRangeDialog dialog(TrendTime::clock(x.min), TrendTime::clock(x.max), this);
    if (dialog.exec() == QDialog::Accepted)
        setRange(dialog.start(), dialog.end());
}

void frmGraphView::closeCurrentView()
{
    const int index = m_session.active();
    const std::optional<QString> question = m_session.closeQuestion(index);
    if (!question || !userMessages().ask(*question))
        return;
    m_session.closeView(index);
    regraph();
}

void frmGraphView::editAxis(TrendAxis axis)
{
    if (m_session.empty())
        return;
    TrendAxisTarget target(m_session, axis, [this] { showExtents(); });
    frmSetYExtents dialog(&target, this);
    dialog.exec();
}

void frmGraphView::chooseColour(int which)
{
    if (m_session.empty())
        return;
    const TrendView& v = m_session.view();
    quint32 colours[] = {v.backColour, v.gridColour, v.textColour, v.valueColour};
    const auto chosen = m_chooseColour(QColor::fromRgb(QRgb(0xFF000000u | colours[which])),
                                       TrendAxisBar::colourTitle(TrendAxisBar::Colour(which)));
    if (!chosen)
        return;
    colours[which] = chosen->rgb() & 0xFFFFFFu;
    m_session.setColours(colours[0], colours[1], colours[2], colours[3]);
    regraph();
}

QWidget* frmGraphView::makePrintPage() const
{
    return new TrendPrintPage(m_session.view(), m_tabs->currentWidget());
}

} // namespace lorvane
