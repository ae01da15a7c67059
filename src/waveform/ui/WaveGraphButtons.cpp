// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphButtons.h"

#include "TalWaveGraphPE.h"
#include "platform/UserText.h"
#include "waveform/WaveGraphSession.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>

namespace lorvane {

namespace {

constexpr int closeButton = 2;
constexpr int helpButton = 0;

} // namespace

WaveGraphButtons::WaveGraphButtons(QWidget* parent) : QWidget(parent)
{
    const std::array<std::pair<int, QString>, 14> captions{{
        {0, userText("503400", "&Help")},
        {1, userText("503401", "&Print Graph")},
        {2, userText("503402", "&Close")},
        {3, userText("503403", "Waveform &Details On")},
        {4, userText("503404", "&Zoom Out")},
        {6, userText("503405", "&Waveform Properties")},
        {7, userText("503406", "P&rev")},
        {8, userText("503407", "&Next")},
        {9, userText("503408", "I&aux On")},
        {10, userText("503409", "&Inputs On")},
        {11, userText("503410", "&Export Picture")},
        {12, userText("503411", "Export &Data")},
        {13, userText("503412", "Advanced Waveform")},
        {14, userText("503413", "Interharmonic")},
    }};
    // Two rows, so that the window fits the frame of a small screen. &Close stands beside
    // them and stays in every state, while the rows give way to the set of a view.
    auto* top = new QHBoxLayout(this);
    top->setContentsMargins(0, 0, 0, 0);
    m_sets = new QStackedWidget;
    auto* main = new QWidget;
    auto* rows = new QGridLayout(main);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(2);
    int position = 0;
    for (const auto& [index, caption] : captions) {
        auto* button = new QPushButton(caption);
        button->setObjectName(QStringLiteral("Command1_%1").arg(index));
        m_commands[index] = button;
        connect(button, &QPushButton::clicked, this, [this, i = index] { emit commandPressed(i); });
        if (index != closeButton) {
            rows->addWidget(button, position / 7, position % 7);
            ++position;
        }
    }
    m_commands[closeButton]->setToolTip(userText("505000", "Close this waveform view"));
    m_sets->addWidget(main);

    const std::array<QString, viewCommandCount> viewCaptions{
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
    m_caption = new QLabel(userText("505018", "View Waveform"));
    row->addWidget(m_caption);
    for (int i = 0; i < viewCommandCount; ++i) {
        m_viewCommands.at(i) = new QPushButton(viewCaptions.at(i));
        connect(m_viewCommands.at(i), &QPushButton::clicked, this,
                [this, i] { emit viewCommandPressed(i); });
        row->addWidget(m_viewCommands.at(i));
    }
    m_viewCommands[1]->setToolTip(userText("505009", "Go back to global view"));
    const std::array<QString, checkCount> checks{
        userText("505010", "In"), userText("505011", "Inputs"), userText("505012", "RMS Val")};
    for (int i = 0; i < checkCount; ++i) {
        m_checks.at(i) = new QCheckBox(checks.at(i));
        m_checks.at(i)->setObjectName(QStringLiteral("Check1_%1").arg(i));
        connect(m_checks.at(i), &QCheckBox::toggled, this,
                [this, i](bool on) { emit checkToggled(i, on); });
        row->addWidget(m_checks.at(i));
    }
    row->addStretch();
    m_sets->addWidget(set);
    top->addWidget(m_sets, 1);
    top->addWidget(m_commands[closeButton], 0, Qt::AlignTop);
}

void WaveGraphButtons::refresh(Set set, const WaveGraphSession& session, bool zoomed,
                               int shownGraph)
{
    const bool interharmonic = set == Set::Interharmonic;
    m_sets->setCurrentIndex(set == Set::Main ? 0 : 1);
    for (int i = 0; i < commandCount; ++i) {
        if (m_commands.at(i))
            m_commands.at(i)->setEnabled(session.isOpen() || i == helpButton || i == closeButton);
    }
    const QString name =
        interharmonic ? QStringLiteral("Command3_%1") : QStringLiteral("Command2_%1");
    for (int i = 0; i < viewCommandCount; ++i) {
        m_viewCommands.at(i)->setObjectName(name.arg(i));
        m_viewCommands.at(i)->setVisible(interharmonic || i < 5);
        if (i >= 5)
            m_viewCommands.at(i)->setEnabled(i != shownGraph);
    }
    for (QCheckBox* box : m_checks)
        box->setVisible(interharmonic);
    m_caption->setVisible(set == Set::View);
    m_commands[closeButton]->setText(zoomed ? userText("503434", "&CLOSE")
                                            : userText("503402", "&Close"));
    m_commands[3]->setText(session.detailsOn() ? userText("503428", "Waveform &Details Off")
                                               : userText("503403", "Waveform &Details On"));
    m_commands[9]->setText(session.neutralOn() ? userText("503429", "I&n Off")
                                               : userText("503430", "I&n On"));
    m_commands[10]->setText(session.inputsOn() ? userText("503431", "&Inputs Off")
                                               : userText("503409", "&Inputs On"));
    const QSignalBlocker neutral(m_checks[0]);
    const QSignalBlocker inputs(m_checks[1]);
    m_checks[0]->setChecked(session.neutralOn());
    m_checks[1]->setChecked(session.inputsOn());
}

void WaveGraphButtons::connectTo(TalWaveGraphPE& window)
{
    TalWaveGraphPE* w = &window;
    WaveGraphSession& session = window.session();
    auto* printExport = new QMenu(this);
    printExport->addAction(userText("503460", "Print Graph"), w, &TalWaveGraphPE::printGraphs);
    printExport->addAction(userText("503459", "Export Graph"), w, &TalWaveGraphPE::exportPicture);
    m_viewCommands[2]->setMenu(printExport);
    const std::array<std::function<void()>, commandCount> commands{
        [w] { emit w->helpRequested(QStringLiteral("LRWaveform")); },
        [w] { w->printGraphs(); },
        [w] { w->window()->close(); },
        [w, &session] { w->setDetailsOn(!session.detailsOn()); },
        [w] { w->zoomOutAll(); },
        {},
        [w] { w->showProperties(); },
        [w] { w->step(-1); },
        [w] { w->step(1); },
        [w, &session] { w->setNeutralOn(!session.neutralOn()); },
        [w, &session] { w->setInputsOn(!session.inputsOn()); },
        [w] { w->exportPicture(); },
        [w] { w->exportData(); },
        [w] { w->showCompositionSetup(); },
        [w] { w->showInterharmonic(); },
    };
    connect(this, &WaveGraphButtons::commandPressed, w, [commands](int index) {
        if (commands.at(index))
            commands.at(index)();
    });
    connect(this, &WaveGraphButtons::viewCommandPressed, w, [w](int index) {
        if (index == TalWaveGraphPE::ViewHelp)
            emit w->helpRequested(QStringLiteral("LRWaveform"));
        else if (index == TalWaveGraphPE::ViewBack)
            w->view() == 0 ? w->setDetailsOn(false) : w->showCapture();
        else if (index == TalWaveGraphPE::ViewEditGraph)
            w->editGraph();
        else if (index == TalWaveGraphPE::ViewZoomOut)
            w->zoomOutAll();
        else if (index >= TalWaveGraphPE::ViewWaveform)
            w->showInterharmonicGraph(index);
    });
    connect(this, &WaveGraphButtons::checkToggled, w, [w](int index, bool on) {
        if (index == TalWaveGraphPE::CheckNeutral)
            w->setNeutralOn(on);
        else if (index == TalWaveGraphPE::CheckInputs)
            w->setInputsOn(on);
        else
            w->setRmsShown(on);
    });
}

} // namespace lorvane
