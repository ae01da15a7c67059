// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "trend/TrendExtents.h"
#include "trend/TrendSession.h"

#include <QToolBar>

namespace lorvane {

/// The buttons of the trend window, each with its tool tip: the zoom and shift steps of the
/// Viewport and the Preview, the points toggle, the range, Regraph and the three extents.
/// Each button is an action named after its command (`CmdViewZoomXIn` ...).
class TrendCommandBar : public QToolBar
{
    Q_OBJECT

public:
    explicit TrendCommandBar(QWidget* parent = nullptr);

    QAction* command(const QString& name) const;

signals:
    void stepRequested(lorvane::TrendCommand command);
    void extentsRequested(lorvane::ExtentsRule rule);
    void pointsToggled();
    void rangeRequested();
    void regraphRequested();
};

} // namespace lorvane
