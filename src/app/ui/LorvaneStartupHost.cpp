// SPDX-License-Identifier: GPL-3.0-or-later
#include "LorvaneStartupHost.h"

#include "TalLorvane.h"
#include "platform/ui/ApplyFont.h"

#include <QApplication>

namespace lorvane {

LorvaneStartupHost::LorvaneStartupHost() = default;

LorvaneStartupHost::~LorvaneStartupHost() = default;

void LorvaneStartupHost::beep()
{
    QApplication::beep();
}

void LorvaneStartupHost::loadMainFrame(RunContext& context)
{
    // The catalogue is installed by now; every window the frame loads takes its font.
    ApplyFont();
    m_frame = std::make_unique<TalLorvane>(context);
}

void LorvaneStartupHost::showSelectionWindow()
{
    if (m_frame)
        m_frame->showSelectionWindow();
}

} // namespace lorvane
