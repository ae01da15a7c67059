// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LoadProgress.h"

#include <QDialog>
#include <array>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

namespace lorvane {

struct RunContext;

/// The small wait window of a long load: "Please wait", two more message lines, a bar, a
/// moving picture and "&Cancel". The load runs on the window thread and asks the window at each
/// step whether to stop; those questions are where the window's own events are served.
class WaitFrm : public QDialog, public LoadProgress
{
    Q_OBJECT

public:
    /// Frames of the moving picture before it starts again.
    static constexpr int animationFrames = 18;
    /// The first ticks keep the window in front, so it holds the focus right after it opened.
    static constexpr int framesInFront = 5;

    /// A wait window captioned with the program's title, its header in the header colours.
    explicit WaitFrm(const RunContext& context, QWidget* parent = nullptr);

    /// Line 0 replaces "Please wait", lines 1 and 2 the second and third lines.
    void SetMessage(int line, const QString& text);
    /// The user pressed "&Cancel" (or the frame asked the work to stop).
    bool cancelled() const { return cancelPending(); }
    /// Text of message line `line` (0 to 2).
    QString message(int line) const;
    /// Frame counter of the moving picture, 0 to 17.
    int animationFrame() const { return m_frame; }
    /// The cancel button, for the keyboard and the tests.
    QPushButton* cancelButton() const { return m_cancel; }
    /// The bar: steps of a thousandth of the work, or a busy bar (range 0 to 0).
    QProgressBar* bar() const { return m_bar; }

    /// A load's progress text goes to the second line.
    void status(const QString& text) override;

protected:
    /// A known share moves the bar; an unknown one makes it the busy bar.
    void showFraction(std::optional<double> fraction) override;
    /// Serves the window's events so that a click on "&Cancel" gets through.
    void serve() override;

public:
    /// One tick of the animation timer (also driven by the timer itself).
    void Timer1_Timer();

private:
    void cancelClicked();
    void drawFrame();

    QString m_title;
    int m_frame = 0;
    std::array<QLabel*, 3> m_lines{};
    QLabel* m_picture = nullptr;
    QProgressBar* m_bar = nullptr;
    QPushButton* m_cancel = nullptr;
    QTimer* m_timer = nullptr;
};

} // namespace lorvane
