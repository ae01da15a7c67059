// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphMenu.h"

#include "TalWaveGraphPE.h"
#include "WaveCompositionPage.h"
#include "platform/UserText.h"

namespace lorvane {

WaveGraphMenu::WaveGraphMenu(TalWaveGraphPE& window, YExtentsTarget* chart, int channel, double x)
    : QMenu(&window), m_window(window)
{
    setObjectName(QStringLiteral("PopUpMenu1"));
    TalWaveGraphPE* w = &window;
    WaveGraphSession& session = window.session();
    addAction(userText("503450", "Set Mark 1"), w, [w, x] { w->setMark(1, x); });
    addAction(userText("503451", "Set Mark 2"), w, [w, x] { w->setMark(2, x); });
    addAction(userText("503452", "Clear Marks"), w, &TalWaveGraphPE::clearMarks);
    QMenu* zoomModes = addMenu(userText("503453", "Zoom Modes"));
    const std::array<std::pair<QString, WaveStripChart::ZoomMode>, 3> modes{{
        {userText("503454", "Horizontal"), WaveStripChart::ZoomMode::Horizontal},
        {userText("503455", "Vertical"), WaveStripChart::ZoomMode::Vertical},
        {userText("503456", "Horizontal && Vertical"), WaveStripChart::ZoomMode::Both},
    }};
    for (const auto& [caption, mode] : modes) {
        QAction* action = zoomModes->addAction(caption, w, [w, mode] { w->setZoomMode(mode); });
        action->setCheckable(true);
        action->setChecked(window.zoomMode() == mode);
    }
    addSeparator();
    addAction(userText("503457", "Waveform Properties"), w, &TalWaveGraphPE::showProperties);
    addAction(userText("503458", "Export Data"), w, &TalWaveGraphPE::exportData);
    addAction(userText("503459", "Export Graph"), w, &TalWaveGraphPE::exportPicture);
    addAction(userText("503460", "Print Graph"), w, &TalWaveGraphPE::printGraphs);
    if (auto* strip = dynamic_cast<WaveStripChart*>(chart))
        addAction(userText("503461", "Reverse Color"), strip, &WaveStripChart::reverseColors);
    QMenu* note = addMenu(userText("503462", "User Anotation"));
    note->addAction(userText("503463", "Add/Edit"), w, &TalWaveGraphPE::editNote);
    note->addAction(userText("503464", "Set Location"), w, &TalWaveGraphPE::placeNoteAtNextClick);
    note->addAction(userText("503465", "Clear"), w, &TalWaveGraphPE::clearNote);
    const int depth =
        window.view() == 2 ? window.compositionPage()->zoom().depth() : session.zoom().depth();
    addAction(userText("503466", "Undo Zoom"), w, &TalWaveGraphPE::undoZoom)->setEnabled(depth > 0);

    // The interharmonic start belongs to the capture's own channels.
    const bool capture = window.view() == 0;
    QMenu* ih = addMenu(userText("503467", "Interharmonic Analysis"));
    ih->setEnabled(capture);
    ih->addAction(userText("503468", "200ms Before"))->setEnabled(false);
    ih->addAction(userText("503469", "Show"), w, &TalWaveGraphPE::showInterharmonic);
    ih->addAction(userText("503470", "Place mark"), w, [w, x] {
          w->placeInterharmonicMark(x);
      })->setEnabled(channel >= 0 && channel < WaveformChannels::analogCount);
    ih->addAction(userText("503471", "Reset mark"), w, &TalWaveGraphPE::resetInterharmonicMark);
    addFrequencyChoice(ih);
    QMenu* options = addMenu(userText("503474", "Options"));
    options->addAction(userText("503475", "Waveform Display Setttings"), w,
                       &TalWaveGraphPE::editSettings);
    addFrequencyChoice(options->addMenu(userText("503476", "System Frequency for Interharmonic")));
    QAction* inputs = options->addAction(userText("503477", "Show Inputs"), w,
                                         [w, &session] { w->setInputsOn(!session.inputsOn()); });
    inputs->setCheckable(true);
    inputs->setChecked(session.inputsOn());
    QAction* neutral = options->addAction(userText("503478", "Show Iaux"), w,
                                          [w, &session] { w->setNeutralOn(!session.neutralOn()); });
    neutral->setCheckable(true);
    neutral->setChecked(session.neutralOn());
    QAction* extents =
        addAction(userText("503479", "Set Y Extents"), w, [w, chart] { w->editYExtents(chart); });
    extents->setObjectName(QStringLiteral("Mnu_Popup1_SetYEXTS"));
}

void WaveGraphMenu::addFrequencyChoice(QMenu* into)
{
    TalWaveGraphPE* w = &m_window;
    const int current = m_window.session().interharmonic().systemFrequency();
    for (const int hz : {50, 60}) {
        QAction* action = into->addAction(hz == 50 ? userText("503472", "50Hz System")
                                                   : userText("503473", "60Hz System"),
                                          w, [w, hz] { w->setInterharmonicFrequency(hz); });
        action->setCheckable(true);
        action->setChecked(current == hz);
    }
}

} // namespace lorvane
