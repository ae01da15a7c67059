// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;

namespace lorvane {

class PqScatterCanvas;
class PqGraphSession;

/// "PQ Graph - 2D": every event a point of its channel's colour on the magnitude/duration
/// plane (duration on decades from 1 us to 100 s, 0 to 500 %), the envelope over them, the
/// device list and the count of events out of the envelope below. The pointer over an event
/// reads it; a double click on one asks for its capture.
class PqScatterPage : public QWidget
{
    Q_OBJECT

public:
    explicit PqScatterPage(const PqGraphSession& session, QWidget* parent = nullptr);

    /// Draws the session's events and envelope afresh.
    void redraw();
    PqScatterCanvas* canvas() const { return m_canvas; }
    /// The read-out of the point under the pointer (empty when none).
    QString hoverText() const;

signals:
    /// The user double-clicked event `index` of channel `channel`.
    void eventActivated(int channel, qsizetype index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const PqGraphSession& m_session;
    PqScatterCanvas* m_canvas = nullptr;
    QLabel* m_devices = nullptr;
    QLabel* m_summary = nullptr;
};

} // namespace lorvane
