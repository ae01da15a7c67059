// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "trend/TrendSession.h"
#include "waveform/ui/YExtentsTarget.h"

#include <functional>

namespace lorvane {

/// One axis of the trend's Viewport as the shared extents dialog (`frmSetYExtents`) sees it:
/// the dialog's values go to the session, and the window redraws.
class TrendAxisTarget final : public YExtentsTarget
{
public:
    TrendAxisTarget(TrendSession& session, TrendAxis axis, std::function<void()> changed)
        : m_session(session), m_axis(axis), m_changed(std::move(changed))
    {
    }

    void setManualY(double bottom, double top) override
    {
        if (m_session.setViewportY(m_axis, {bottom, top}))
            m_changed();
    }
    double yMin() const override { return range().min; }
    double yMax() const override { return range().max; }

private:
    const AxisRange& range() const
    {
        const TrendExtentsOfGraph& port = m_session.view().viewport;
        return m_axis == TrendAxis::Left ? port.left : port.right;
    }

    TrendSession& m_session;
    TrendAxis m_axis;
    std::function<void()> m_changed;
};

} // namespace lorvane
