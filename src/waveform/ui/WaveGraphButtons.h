// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <array>

class QCheckBox;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace lorvane {

class TalWaveGraphPE;
class WaveGraphSession;

/// The buttons of the waveform window: the main set `Command1` beside &Close, and the set of
/// a view (`Command2` of the detail and advanced views, `Command3` with the graph choice and
/// the `Check1` boxes of the interharmonic view). Presses go out as signals by index.
class WaveGraphButtons : public QWidget
{
    Q_OBJECT

public:
    static constexpr int commandCount = 15;
    static constexpr int viewCommandCount = 8;
    static constexpr int checkCount = 3;
    /// Which set shows.
    enum class Set
    {
        Main,
        View,
        Interharmonic,
    };

    explicit WaveGraphButtons(QWidget* parent = nullptr);

    /// Shows `set`, the captions of the session's toggles and zoom, the enabled state of an
    /// open capture, and with `shownGraph` (5 to 7) the graph button that is pressed already.
    void refresh(Set set, const WaveGraphSession& session, bool zoomed, int shownGraph);

    QPushButton* command(int index) const { return m_commands.at(index); }
    QPushButton* viewCommand(int index) const { return m_viewCommands.at(index); }
    QCheckBox* check(int index) const { return m_checks.at(index); }
    QLabel* caption() const { return m_caption; }
    /// Sends every press to the window's command; &Print/Export gets its two choices.
    void connectTo(TalWaveGraphPE& window);

signals:
    void commandPressed(int index);
    void viewCommandPressed(int index);
    void checkToggled(int index, bool on);

private:
    std::array<QPushButton*, commandCount> m_commands{};
    std::array<QPushButton*, viewCommandCount> m_viewCommands{};
    std::array<QCheckBox*, checkCount> m_checks{};
    QStackedWidget* m_sets = nullptr;
    /// "View Waveform" over the set of the detail and advanced views.
    QLabel* m_caption = nullptr;
};

} // namespace lorvane
