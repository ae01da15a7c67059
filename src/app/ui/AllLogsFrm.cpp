// SPDX-License-Identifier: GPL-3.0-or-later
#include "AllLogsFrm.h"

#include "SelectionButtonTexts.h"
#include "app/RunContext.h"
#include "platform/Fault.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "query/engine/LogFileList.h"
#include "query/selection/SplitLogMeter.h"
#include "query/selection/ViewButtons.h"
#include "query/selection/ui/SelDataPoints.h"
#include "query/selection/ui/SelMeterItems.h"
#include "query/selection/ui/SelTimeRange.h"
#include "query/selection/ui/frmDeviceMasterLog.h"
#include "store/TempQueryDatabase.h"
#include "store/WallClock.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace lorvane {

namespace {

constexpr int keyRole = Qt::UserRole;
constexpr int tagRole = Qt::UserRole + 1;

/// The sibling program the "back" button returns to; there is none to find on this system.
QString siblingTitle()
{
    return userText("310001", "Tessera Ext");
}

/// The title the export hand-over would carry for an export button.
QString exportTitle(int button)
{
    if (button == ViewButtons::Reports)
        return userText("310050", "Vex*Grid Report");
    const QString to = userText("310051", "Export to");
    return button == ViewButtons::Pqdif ? to + QStringLiteral(" PQDIF")
                                        : to + QStringLiteral(" COMTRADE");
}

/// The settings name default data points once any stored row holds an id.
bool defaultsPresent(const DefaultSelection& stored)
{
    return std::any_of(stored.dataIds.begin(), stored.dataIds.end(),
                       [](qint32 id) { return id > 0; });
}

bool twentyFourHour(const QString& timeFormat)
{
    return !timeFormat.contains(QStringLiteral("ap"), Qt::CaseInsensitive);
}

} // namespace

AllLogsFrm::AllLogsFrm(RunContext& context, QWidget* parent)
    : QWidget(parent), m_context(context),
      m_session(context.settings.maxDeviceLogNumber,
                context.scratch ? context.scratch->path() : QString())
{
    setObjectName(QStringLiteral("AllLogsFrm"));
    setWindowTitle(userText("310002", "Meter and Log Selection"));

    const DefaultSelection& stored = m_context.defaultSelection;
    m_points.loadDefaults(stored, defaultsPresent(stored));
    m_time.read(stored, WallClock::now());
    m_meters.setLastFolder(m_context.settings.currentPath);

    buildWindow();
    installDefaultHooks();
    DoReFresh();
}

AllLogsFrm::~AllLogsFrm() = default;

void AllLogsFrm::buildWindow()
{
    m_tree = new QTreeWidget;
    m_tree->setObjectName(QStringLiteral("TreeView1"));
    m_tree->setHeaderHidden(true);
    m_tree->setMinimumWidth(280);

    m_refresh = new QPushButton(userText("310003", "&Refresh"));
    m_refresh->setObjectName(QStringLiteral("Command1_1"));
    m_refresh->setToolTip(userText("310004", "Read the open meters again"));
    connect(m_refresh, &QPushButton::clicked, this, [this] {
        m_refresh->setEnabled(false);
        QApplication::setOverrideCursor(Qt::WaitCursor);
        DoReFresh();
        QApplication::restoreOverrideCursor();
        m_refresh->setEnabled(true);
    });

    auto* left = new QWidget;
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(new QLabel(userText("310005", "Devices and logs")));
    leftLayout->addWidget(m_tree, 1);
    auto* refreshRow = new QHBoxLayout;
    refreshRow->addStretch();
    refreshRow->addWidget(m_refresh);
    leftLayout->addLayout(refreshRow);

    for (int i = 0; i < 6; ++i) {
        const ButtonText& t = selectionButtonTexts().at(static_cast<size_t>(i));
        auto* button = new QPushButton(userText(t.captionId, t.caption));
        button->setObjectName(QStringLiteral("Command3_%1").arg(i));
        QString tip = userText(t.tipId, t.tip);
        if (i == 4)
            tip += siblingTitle();
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, [this, i] { Command3_Click(i); });
        m_selectionButtons.at(static_cast<size_t>(i)) = button;
    }
    m_itemsButton = new QPushButton(userText("310620", "&Inputs, Relays, Demand"));
    m_itemsButton->setObjectName(QStringLiteral("cmdMeterItems"));
    m_itemsButton->setToolTip(userText("310621", "Select the inputs, relays and demand items"));
    connect(m_itemsButton, &QPushButton::clicked, this, &AllLogsFrm::meterItemsClicked);

    m_dmlButton = new QPushButton(userText("310066", "Select &Log"));
    m_dmlButton->setObjectName(QStringLiteral("cmd_DML_Select"));
    m_dmlButton->setToolTip(userText("310076", "Choose another log of the Device Master Log"));
    connect(m_dmlButton, &QPushButton::clicked, this, [this] {
        // The log chosen before opens again; only without one is the choice offered.
        QString chosen = m_meters.storedDevicePath();
        if (chosen.isEmpty()) {
            chosen = chooseSplitLog(splitLogMarker());
            m_meters.setStoredDevicePath(chosen);
        }
        if (!chosen.isEmpty() && openMeterFile(chosen, 0)) {
            // The chosen log belongs to the split-log meter, which stays alone.
            m_meters.setMeter2Selectable(false);
            DoReFresh();
        }
    });

    auto* meterBox = new QGroupBox(userText("310006", "Meters"));
    auto* meterGrid = new QGridLayout(meterBox);
    for (int i = 0; i < 2; ++i) {
        auto* combo = new QComboBox;
        combo->setObjectName(QStringLiteral("Combo1_%1").arg(i));
        combo->setMinimumWidth(200);
        connect(combo, &QComboBox::activated, this, [this, i](int item) { comboPicked(i, item); });
        m_combos.at(static_cast<size_t>(i)) = combo;
        meterGrid->addWidget(m_selectionButtons.at(static_cast<size_t>(i)), i, 0);
        meterGrid->addWidget(combo, i, 1);
    }
    // The Device Master Log button takes the place of the meter 2 button while it is shown.
    meterGrid->addWidget(m_dmlButton, 1, 0);
    meterGrid->setColumnStretch(1, 1);

    m_pointsLabel = new QLabel;
    m_pointsLabel->setObjectName(QStringLiteral("DataPointStatus"));
    m_startLabel = new QLabel;
    m_startLabel->setObjectName(QStringLiteral("StartTimeLabel"));
    m_endLabel = new QLabel;
    m_endLabel->setObjectName(QStringLiteral("EndTimeLabel"));
    auto* selectionBox = new QGroupBox(userText("310007", "Selection"));
    auto* selectionGrid = new QGridLayout(selectionBox);
    selectionGrid->addWidget(m_selectionButtons.at(2), 0, 0);
    selectionGrid->addWidget(m_pointsLabel, 0, 1);
    selectionGrid->addWidget(m_selectionButtons.at(3), 1, 0, 2, 1, Qt::AlignTop);
    selectionGrid->addWidget(m_startLabel, 1, 1);
    selectionGrid->addWidget(m_endLabel, 2, 1);
    selectionGrid->addWidget(m_itemsButton, 3, 0);
    selectionGrid->setColumnStretch(1, 1);

    auto* viewBox = new QGroupBox(userText("310008", "Views"));
    auto* viewGrid = new QGridLayout(viewBox);
    for (int i = 0; i < ViewButtons::count; ++i) {
        const ButtonText& t = viewButtonTexts().at(static_cast<size_t>(i));
        auto* button = new QPushButton(userText(t.captionId, t.caption));
        button->setObjectName(QStringLiteral("Command2_%1").arg(i));
        button->setToolTip(userText(t.tipId, t.tip));
        button->setMinimumHeight(32);
        connect(button, &QPushButton::clicked, this, [this, i] { Command2_Click(i); });
        m_viewButtons.at(static_cast<size_t>(i)) = button;
        viewGrid->addWidget(button, i / 3, i % 3);
    }

    auto* bottomRow = new QHBoxLayout;
    bottomRow->addStretch();
    bottomRow->addWidget(m_selectionButtons.at(4));
    bottomRow->addWidget(m_selectionButtons.at(5));

    auto* right = new QWidget;
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->addWidget(meterBox);
    rightLayout->addWidget(selectionBox);
    rightLayout->addWidget(viewBox);
    rightLayout->addStretch();
    rightLayout->addLayout(bottomRow);

    auto* splitter = new QSplitter;
    splitter->addWidget(left);
    splitter->addWidget(right);
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 3);
    splitter->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter);
}

void AllLogsFrm::installDefaultHooks()
{
    chooseMeterFile = [this](int meterIndex) { return defaultMeterFileDialog(meterIndex); };
    runDataPointDialog = [this] {
        const QList<DataPointRow> available =
            m_context.dictionary ? DataPointSelection::available(
                                       LogFileList::expand(m_meters.usedFiles(),
                                                           static_cast<int>(LogKind::Snapshots)),
                                       *m_context.dictionary, m_context.technicianMode,
                                       m_meters.device(0).userItemLabels)
                                 : QList<DataPointRow>{};
        SelDataPoints dialog(m_points, m_buffer, available, m_meters.usedCount(),
                             m_context.defaultSelection, m_context.paths.settingsFile, this);
        connect(&dialog, &SelDataPoints::helpRequested, this, &AllLogsFrm::helpRequested);
        return dialog.exec() == QDialog::Accepted;
    };
    runTimeRangeDialog = [this] {
        SelTimeRange dialog(m_time, m_buffer, TimeSelection::dataBounds(m_meters), WallClock::now(),
                            twentyFourHour(m_context.timeFormat), this);
        connect(&dialog, &SelTimeRange::helpRequested, this, &AllLogsFrm::helpRequested);
        return dialog.exec() == QDialog::Accepted;
    };
    runMeterItemsDialog = [this] {
        SelMeterItems dialog(m_session,
                             SelMeterItems::metersOf(m_meters, m_context.dictionary.get()), this);
        connect(&dialog, &SelMeterItems::helpRequested, this, &AllLogsFrm::helpRequested);
        return dialog.exec() == QDialog::Accepted;
    };
    chooseSplitLog = [this](const QString& dmlPath) {
        frmDeviceMasterLog dialog(dmlPath, this);
        return dialog.exec() == QDialog::Accepted ? dialog.selectedPath() : QString();
    };
}

QString AllLogsFrm::defaultMeterFileDialog(int meterIndex)
{
    const QString title = userText("310080", "Select a log database file for meter") +
                          QLatin1Char(' ') + QString::number(meterIndex + 1);
    const QString dataLog = userText("310081", "Data Log File") + QStringLiteral(" (*.DB)");
    QStringList filters{dataLog};
    QString preselected = dataLog;
    if (meterIndex == 0) {
        filters << userText("310082", "Device Master Log") + QStringLiteral(" (*.dml)");
        preselected = userText("310083", "Log File") + QStringLiteral(" (*.db *.dml)");
        filters << preselected;
    }
    return QFileDialog::getOpenFileName(this, title, m_meters.lastFolder(),
                                        filters.join(QStringLiteral(";;")), &preselected);
}

QString AllLogsFrm::splitLogMarker() const
{
    if (!m_meters.deviceMasterLog().isEmpty())
        return m_meters.deviceMasterLog();
    return SplitLogMeter::dmlFolderOfLogFile(m_meters.device(0).filePath) + QLatin1Char('/');
}

void AllLogsFrm::Command2_Click(int index)
{
    // While long work runs the commands are grey; a call that still arrives is refused.
    if (index < 0 || index >= ViewButtons::count || m_context.work.busy())
        return;
    ViewDispatch::Request request;
    try {
        ViewDispatch::Dialogs dialogs{[this] { Command3_Click(2); }, chooseSplitLog};
        request = m_session.dispatch().Command2_Click(index, WallClock::now(), 0, dialogs);
    } catch (const Fault& fault) {
        userMessages().show(fault.message(), UserMessages::Icon::Critical);
        emit programEndRequested();
        return;
    } catch (const std::exception& error) {
        // A meter file that fails while the button checks it: the selection stays as it was.
        userMessages().show(QString::fromLocal8Bit(error.what()), UserMessages::Icon::Warning);
        return;
    }
    showMessages(request.messages, UserMessages::Icon::Warning);
    // A split-log press may have opened another log file of the meter.
    if (index == ViewButtons::DatabaseStatus)
        DoReFresh();

    switch (request.action) {
    case ViewDispatch::Action::Grid:
        emit viewRequested(request);
        break;
    case ViewDispatch::Action::Billing:
        // The billing program's path lives in the sibling program's settings, absent here.
        userMessages().show(userText("310090", "Please set it in Tessera software"),
                            UserMessages::Icon::Information,
                            userText("310091", "Energy Billing Module."));
        break;
    case ViewDispatch::Action::Export:
        userMessages().show(userText("310092", "Launch") + QLatin1Char(' ') + exportTitle(index) +
                                QLatin1Char(' ') + userText("310093", "Failed") + QLatin1Char('.'),
                            UserMessages::Icon::Warning);
        break;
    case ViewDispatch::Action::Refused:
    case ViewDispatch::Action::SplitLogNeeded:
        break;
    }
}

void AllLogsFrm::meterItemsClicked()
{
    if (m_context.work.busy())
        return;
    try {
        if (!m_meters.anyMeterSelected()) {
            userMessages().show(userText("310094", "Please select a meter data file."),
                                UserMessages::Icon::Warning);
            return;
        }
        runMeterItemsDialog();
    } catch (const Fault& fault) {
        userMessages().show(fault.message(), UserMessages::Icon::Warning);
    } catch (const std::exception& error) {
        // The offer is read from the meter files: one that fails leaves the choice as it was.
        userMessages().show(QString::fromLocal8Bit(error.what()), UserMessages::Icon::Warning);
    } catch (...) {
        userMessages().show(userText("310099", "The file could not be opened") + u'.',
                            UserMessages::Icon::Warning);
    }
}

void AllLogsFrm::Command3_Click(int index)
{
    if (m_context.work.busy())
        return;
    switch (index) {
    case 0:
    case 1: {
        const QString path = chooseMeterFile(index);
        if (!path.isEmpty())
            openMeterFile(path, index);
        break;
    }
    case 2:
        if (!m_meters.anyMeterSelected()) {
            userMessages().show(userText("310094", "Please select a meter data file."),
                                UserMessages::Icon::Warning);
            return;
        }
        if (!m_points.valid())
            m_points.loadDefaults(m_context.defaultSelection,
                                  defaultsPresent(m_context.defaultSelection));
        runDataPointDialog();
        showSelectionTexts();
        break;
    case 3:
        if (runTimeRangeDialog()) {
            m_time.write(m_context.defaultSelection);
            if (!m_context.paths.settingsFile.isEmpty())
                m_context.defaultSelection.writeTimeRange(m_context.paths.settingsFile);
        }
        showSelectionTexts();
        break;
    case 4:
        // No sibling program runs beside this one: its window cannot be brought up.
        userMessages().show(userText("310095", "Cannot find ") + siblingTitle() +
                                QStringLiteral(".\n") +
                                userText("310096", "Application may not be active."),
                            UserMessages::Icon::Warning);
        break;
    case 5:
        emit helpRequested(QStringLiteral("LRMain"));
        break;
    default:
        break;
    }
}

bool AllLogsFrm::openMeterFile(const QString& path, int meterIndex)
{
    // A meter is compared with the scratch database: without it the reason is told here, at
    // the first use, and not as a fault of the meter file.
    if (!m_context.scratch) {
        userMessages().show(m_context.scratchProblem, UserMessages::Icon::Critical);
        return false;
    }
    // The upgrade ladder serves window events: no other work may start meanwhile.
    WorkGuard::Scope scope = m_context.work.enter();
    if (!scope)
        return false;
    std::unique_ptr<LoadProgress> progress = progressFactory ? progressFactory() : nullptr;
    scope.watch(progress.get());
    AddFileToSystem::Outcome outcome;
    try {
        outcome =
            m_session.addFile().run(path, QFileInfo(path).fileName(), meterIndex, progress.get());
    } catch (const Fault& fault) {
        userMessages().show(fault.message(), UserMessages::Icon::Critical);
        emit programEndRequested();
        return false;
    } catch (const std::exception& error) {
        outcome.messages << QFileInfo(path).fileName() + QStringLiteral(": ") +
                                QString::fromLocal8Bit(error.what());
    } catch (...) {
        outcome.messages << QFileInfo(path).fileName() + QStringLiteral(": ") +
                                userText("310099", "The file could not be opened") + u'.';
    }
    scope.watch(nullptr);
    progress.reset();
    showMessages(outcome.messages,
                 outcome.added ? UserMessages::Icon::Information : UserMessages::Icon::Warning);
    if (outcome.added) {
        if (m_meters.deviceMasterLog().isEmpty())
            m_meters.setLastFolder(QFileInfo(path).absolutePath());
        DefaultSelection& stored = m_context.defaultSelection;
        const DeviceRecord& device = m_meters.device(meterIndex);
        (meterIndex == 0 ? stored.device1 : stored.device2) = device.hardwareName;
        (meterIndex == 0 ? stored.device1Path : stored.device2Path) = device.filePath;
        if (!m_context.paths.settingsFile.isEmpty())
            stored.writeDevices(m_context.paths.settingsFile);
    }
    DoReFresh();
    return outcome.added;
}

void AllLogsFrm::autoLoadNewestFile()
{
    const SelectionSession::NewestFile newest =
        SelectionSession::newestMeterFile(m_context.settings.currentPath);
    if (!newest.refusal.isEmpty())
        userMessages().show(newest.refusal, UserMessages::Icon::Warning);
    else if (!newest.path.isEmpty())
        openMeterFile(newest.path, 0);
}

void AllLogsFrm::settingsApplied()
{
    // A closed meter 2 may have been part of the last queries of the view buttons.
    if (m_meters.setConfiguredDevices(m_context.settings.maxDeviceLogNumber))
        m_buffer.ClearTopQueryBuffer(true);
    DoReFresh();
}

void AllLogsFrm::DoReFresh()
{
    fillTree();
    fillCombos();
    enableViewButtons();
    showSelectionTexts();
}

void AllLogsFrm::fillTree()
{
    m_tree->clear();
    QHash<QString, QTreeWidgetItem*> byKey;
    for (const SelectionSession::TreeNode& node : m_session.tree(m_context.deviceTypes)) {
        QTreeWidgetItem* parent = byKey.value(node.parentKey);
        auto* item = parent ? new QTreeWidgetItem(parent, QStringList{node.text})
                            : new QTreeWidgetItem(m_tree, QStringList{node.text});
        item->setData(0, keyRole, node.key);
        if (!node.filePath.isEmpty()) {
            item->setData(0, tagRole, node.filePath);
            item->setToolTip(0, node.filePath);
        }
        item->setExpanded(!node.key.startsWith(QStringLiteral("DeItem_")));
        byKey.insert(node.key, item);
    }
}

void AllLogsFrm::fillCombos()
{
    for (int i = 0; i < 2; ++i) {
        QComboBox* combo = m_combos.at(static_cast<size_t>(i));
        combo->clear();
        if (i < m_meters.maxDevices()) {
            combo->addItems(m_meters.comboItems(i));
            combo->setCurrentIndex(m_meters.comboSelection(i));
        }
    }
    const bool meter2 = m_meters.maxDevices() > 1 && m_meters.meter2Selectable();
    m_combos.at(1)->setVisible(meter2);
    m_selectionButtons.at(1)->setVisible(meter2);
    m_dmlButton->setVisible(!m_meters.meter2Selectable());
}

void AllLogsFrm::comboPicked(int meterIndex, int item)
{
    // The view buttons keep their state until the enabling rule runs again.
    m_meters.pickComboItem(meterIndex, item);
}

void AllLogsFrm::enableViewButtons()
{
    m_enabled = ViewButtons::enabled(m_meters);
    for (int i = 0; i < ViewButtons::count; ++i)
        m_viewButtons.at(static_cast<size_t>(i))->setEnabled(m_enabled.at(static_cast<size_t>(i)));
    const bool anyMeter = m_meters.usedCount() > 0;
    m_selectionButtons.at(2)->setEnabled(anyMeter);
    m_selectionButtons.at(3)->setEnabled(anyMeter);
    m_itemsButton->setEnabled(anyMeter);
    m_refresh->setEnabled(anyMeter);
    emit viewButtonsChanged();
}

void AllLogsFrm::showSelectionTexts()
{
    const TimeSelection::Bounds bounds = m_time.bounds(WallClock::now());
    QString dateFormat = m_context.shortDateFormat.isEmpty() ? QStringLiteral("MM/dd/yyyy")
                                                             : m_context.shortDateFormat;
    dateFormat += QLatin1Char(' ') +
                  (m_context.timeFormat.isEmpty() ? QStringLiteral("HH:mm") : m_context.timeFormat);
    const QPair<QString, QString> labels = m_time.labels(bounds, dateFormat);
    m_startLabel->setText(labels.first);
    m_endLabel->setText(labels.second);

    m_pointsLabel->setText(m_points.statusText());
    if (m_points.count() == 0)
        emit statusTextChanged(userText("310101", "NO DATA"),
                               userText("310102", "No data points selected"));
    else
        emit statusTextChanged(QString(), m_points.statusText());
}

void AllLogsFrm::showMessages(const QStringList& messages, UserMessages::Icon icon)
{
    for (const QString& message : messages)
        userMessages().show(message, icon);
}

bool AllLogsFrm::viewButtonEnabled(int index) const
{
    return index >= 0 && index < ViewButtons::count && m_enabled.at(static_cast<size_t>(index));
}

MeterTable& AllLogsFrm::meters()
{
    return m_meters;
}

DataPointSelection& AllLogsFrm::dataPoints()
{
    return m_points;
}

TimeSelection& AllLogsFrm::timeSelection()
{
    return m_time;
}

TopQueryBuffer& AllLogsFrm::topQueryBuffer()
{
    return m_buffer;
}

} // namespace lorvane
