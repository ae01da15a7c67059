// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LoadProgress.h"
#include "platform/UserMessages.h"
#include "query/selection/SelectionSession.h"

#include <QWidget>
#include <array>
#include <functional>
#include <memory>

class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;

namespace lorvane {

struct RunContext;

/// The selection window: the open meters, their logs, the data points and the time range
/// that a view is made of. It lives inside the main frame for the whole run; closing it only
/// hides it.
class AllLogsFrm : public QWidget
{
    Q_OBJECT

public:
    explicit AllLogsFrm(RunContext& context, QWidget* parent = nullptr);
    ~AllLogsFrm() override;

    /// A view button press (also called by the frame's menu mirrors and the command line).
    void Command2_Click(int index);
    /// A selection button press (meter 1/2 file dialog, data points, time range, back, help).
    void Command3_Click(int index);
    /// The press of the inputs, relays and demand items button.
    void meterItemsClicked();
    /// The selection the window shows (the graph windows take the current one from here).
    SelectionSession& session() { return m_session; }
    /// Opens `path` as meter `meterIndex + 1` as a manual selection does (the .dml
    /// redirection included); false when refused (the message was shown).
    bool openMeterFile(const QString& path, int meterIndex);
    /// AutoLoadDBs: opens the newest *.DB of the retrieved-logs folder as meter 1.
    void autoLoadNewestFile();
    /// Rebuilds the tree, the combo boxes, the view buttons and the selection labels.
    void DoReFresh();
    /// System Properties changed the settings: takes the meter count up at once.
    void settingsApplied();
    /// View button `index` (0 to 14) may be pressed.
    bool viewButtonEnabled(int index) const;
    /// The open meters.
    MeterTable& meters();
    /// The data point selection the dialog edits.
    DataPointSelection& dataPoints();
    /// The time range rule the dialog edits.
    TimeSelection& timeSelection();
    /// The last query of each view button.
    TopQueryBuffer& topQueryBuffer();

    /// Hooks that open the modal dialogs; tests replace them.
    std::function<QString(int meterIndex)> chooseMeterFile;        // file dialog; empty = cancel
    std::function<bool()> runDataPointDialog;                      // SelDataPoints exec
    std::function<bool()> runTimeRangeDialog;                      // SelTimeRange exec
    std::function<bool()> runMeterItemsDialog;                     // SelMeterItems exec
    std::function<QString(const QString& dmlPath)> chooseSplitLog; // frmDeviceMasterLog
    /// The watcher of a meter's opening (the frame gives the wait window); none = silent.
    std::function<std::unique_ptr<LoadProgress>()> progressFactory;

signals:
    /// The grid window shows this view (ViewDispatch::Request of a grid button).
    void viewRequested(const lorvane::ViewDispatch::Request& request);
    /// The view buttons were enabled anew: the frame's menu mirrors follow.
    void viewButtonsChanged();
    /// Texts for the frame's status panes ("NO DATA", "No data points selected" ...).
    void statusTextChanged(const QString& first, const QString& second);
    /// A version fault that ends the program happened (message already shown).
    void programEndRequested();
    /// Help topic asked for ("LRMain").
    void helpRequested(const QString& topic);

private:
    void buildWindow();
    void installDefaultHooks();
    QString defaultMeterFileDialog(int meterIndex);
    /// The path the Device Master Log window starts from for the open split-log meter.
    QString splitLogMarker() const;
    void fillTree();
    void fillCombos();
    void enableViewButtons();
    void showSelectionTexts();
    void comboPicked(int meterIndex, int item);
    void showMessages(const QStringList& messages, UserMessages::Icon icon);

    RunContext& m_context;
    /// The selection itself; the window keeps the tree, the combo boxes and the buttons.
    SelectionSession m_session;
    MeterTable& m_meters = m_session.meters();
    DataPointSelection& m_points = m_session.dataPoints();
    TimeSelection& m_time = m_session.timeSelection();
    TopQueryBuffer& m_buffer = m_session.topQueryBuffer();
    std::array<bool, 15> m_enabled{};

    QTreeWidget* m_tree = nullptr;
    std::array<QComboBox*, 2> m_combos{};
    std::array<QPushButton*, 6> m_selectionButtons{};
    QPushButton* m_dmlButton = nullptr;
    QPushButton* m_itemsButton = nullptr;
    std::array<QPushButton*, 15> m_viewButtons{};
    QPushButton* m_refresh = nullptr;
    QLabel* m_startLabel = nullptr;
    QLabel* m_endLabel = nullptr;
    QLabel* m_pointsLabel = nullptr;
};

} // namespace lorvane

Q_DECLARE_METATYPE(lorvane::ViewDispatch::Request)
