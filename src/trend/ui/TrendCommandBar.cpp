// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendCommandBar.h"

#include "platform/UserText.h"

#include <QAction>

namespace lorvane {

TrendCommandBar::TrendCommandBar(QWidget* parent) : QToolBar(parent)
{
    struct Step
    {
        const char* name;
        const char* label;
        const char* id;
        const char* tip;
        TrendCommand command;
    };
    static const Step steps[] = {
        {"CmdViewZoomXIn", "X In", "701050", "Zoom the Viewport`s X scale in",
         TrendCommand::ViewZoomXIn},
        {"CmdViewZoomXOut", "X Out", "701051", "Zoom the Viewport`s X scale out",
         TrendCommand::ViewZoomXOut},
        {"CmdViewZoomYIn", "Y In", "701052", "Zoom the Viewport`s Y scale in",
         TrendCommand::ViewZoomYIn},
        {"CmdViewZoomYOut", "Y Out", "701053", "Zoom the Viewport`s Y scale out",
         TrendCommand::ViewZoomYOut},
        {"CmdPreviewZoomYIn", "Preview Y In", "701054", "Zoom the Preview`s Y scale in",
         TrendCommand::PreviewZoomYIn},
        {"CmdPreviewZoomYOut", "Preview Y Out", "701055", "Zoom the Preview`s Y scale out",
         TrendCommand::PreviewZoomYOut},
        {"CmdPreviewYShiftUp", "Shift Up", "701056", "Shift the Preview`s Y axis up",
         TrendCommand::PreviewYShiftUp},
        {"CmdPreviewYShiftDown", "Shift Down", "701057", "Shift the Preview`s Y axis down",
         TrendCommand::PreviewYShiftDown},
    };
    auto make = [this](const char* name, const QString& label, const QString& tip) {
        QAction* action = addAction(label);
        action->setObjectName(QString::fromLatin1(name));
        action->setToolTip(tip);
        return action;
    };
    for (const Step& step : steps) {
        const TrendCommand command = step.command;
        connect(make(step.name, QString::fromLatin1(step.label), userText(step.id, step.tip)),
                &QAction::triggered, this, [this, command] { emit stepRequested(command); });
    }
    addSeparator();
    connect(make("CmdTogglePoints", userText("701058", "Points"),
                 userText("701059", "Toggle Graphing Data Points")),
            &QAction::triggered, this, &TrendCommandBar::pointsToggled);
    connect(make("CmdSetRange", userText("701060", "Range"),
                 userText("701061", "Set the Start and End Date")),
            &QAction::triggered, this, &TrendCommandBar::rangeRequested);
    connect(make("CmdReorganizeGraph", userText("701062", "Regraph"),
                 userText("701063", "Redraw with the current sets, colours and axes")),
            &QAction::triggered, this, &TrendCommandBar::regraphRequested);
    addSeparator();
    struct Extents
    {
        const char* name;
        const char* id;
        const char* label;
        ExtentsRule rule;
    };
    static const Extents extents[] = {
        {"CmdDefaultExtents", "701064", "Default Extents", ExtentsRule::Default},
        {"CmdNonZeroExtents", "701065", "Non-Zero Extents", ExtentsRule::NonZero},
        {"CmdIntelligentExtents", "701066", "Intelligent Extents", ExtentsRule::Intelligent},
    };
    for (const Extents& e : extents) {
        const ExtentsRule rule = e.rule;
        const QString label = userText(e.id, e.label);
        connect(make(e.name, label, label), &QAction::triggered, this,
                [this, rule] { emit extentsRequested(rule); });
    }
}

QAction* TrendCommandBar::command(const QString& name) const
{
    return findChild<QAction*>(name);
}

} // namespace lorvane
