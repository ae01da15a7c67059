// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/SystemStartupHost.h"

#include <memory>

namespace lorvane {

class TalLorvane;

/// Start-up as the program runs it: the system's services, the desktop's warning sound and
/// the real main frame.
class LorvaneStartupHost : public SystemStartupHost
{
public:
    LorvaneStartupHost();
    ~LorvaneStartupHost() override;

    void beep() override;
    void loadMainFrame(RunContext& context) override;
    void showSelectionWindow() override;

    /// The main frame once loaded, otherwise null.
    TalLorvane* mainFrame() const { return m_frame.get(); }

private:
    std::unique_ptr<TalLorvane> m_frame;
};

} // namespace lorvane
