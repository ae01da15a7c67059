// SPDX-License-Identifier: GPL-3.0-or-later
#include "SysSetupFrm.h"

#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "pqgraph/CurveLibrary.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace lorvane {

namespace {

/// A line edit with its "&Browse" button beside it.
QHBoxLayout* withButton(QLineEdit* edit, QPushButton* button)
{
    auto* row = new QHBoxLayout;
    row->addWidget(edit, 1);
    row->addWidget(button);
    return row;
}

} // namespace

SysSetupFrm::SysSetupFrm(LocalSystemSettings& settings, const QString& settingsFile,
                         LocalSystemSettings::UserSettingReader userSetting, QWidget* parent)
    : QDialog(parent), m_properties(settings, settingsFile, std::move(userSetting))
{
    setObjectName(QStringLiteral("SysSetupFrm"));
    setWindowTitle(userText("309070", "System Properties"));

    chooseFolder = [this](const QString& current) {
        return QFileDialog::getExistingDirectory(this, userText("309071", "Select"), current);
    };
    chooseCurveFile = [this](const QString& current) {
        return QFileDialog::getOpenFileName(
            this, userText("309072", "Select a PQ Graph Boundary Line File"), current,
            userText("309073", "PQ Graph Boundary Line File") + QStringLiteral(" (*.Ini *.ini)"));
    };

    auto* tabs = new QTabWidget(this);
    tabs->addTab(buildGeneralPage(), userText("309074", "General"));

    auto* help = new QPushButton(userText("309075", "&Help"), this);
    auto* cancel = new QPushButton(userText("309001", "&Cancel"), this);
    auto* apply = new QPushButton(userText("309076", "&Apply"), this);
    auto* ok = new QPushButton(userText("309061", "&OK"), this);
    ok->setDefault(true);
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("SystemProperties")); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(apply, &QPushButton::clicked, this, &SysSetupFrm::applyClicked);
    connect(ok, &QPushButton::clicked, this, &SysSetupFrm::okClicked);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(help);
    buttons->addStretch();
    for (QPushButton* button : {cancel, apply, ok})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addLayout(buttons);
    showFields();
}

QWidget* SysSetupFrm::buildGeneralPage()
{
    auto* page = new QWidget;
    m_loadOnStartup = new QCheckBox(userText("309080", "Load Database on Startup"), page);
    m_searchFolders = new QCheckBox(userText("309081", "Auto Search Additional Folders"), page);
    m_tesseraDefault = new QCheckBox(userText("309082", "Use Tessera EXTs Default"), page);
    m_showLookup = new QCheckBox(userText("309083", "Show Lookup Data for Devices"), page);
    m_oldCurve = new QCheckBox(userText("309084", "Use Old CBEMA Curve"), page);
    m_userFormats = new QCheckBox(
        userText("309085", "Use user defined formats for Device Scaled Energy Data"), page);
    m_defaultPath = new QLineEdit(page);
    m_currentPath = new QLineEdit(page);
    m_currentPath->setReadOnly(true);
    m_maxDevices = new QLineEdit(page);
    m_currentMaxDevices = new QLabel(page);
    m_maxDataPoints = new QLineEdit(page);
    m_dataFormat = new QComboBox(page);
    m_dataFormat->addItems(LocalSystemSettings::dataFormats());
    m_curveFile = new QLineEdit(page);
    for (QLineEdit* path : {m_defaultPath, m_currentPath, m_curveFile})
        path->setMinimumWidth(340);
    m_browseFolder = new QPushButton(userText("309086", "&Browse"), page);
    m_browseCurve = new QPushButton(userText("309086", "&Browse"), page);

    connect(m_tesseraDefault, &QCheckBox::clicked, this, [this](bool checked) {
        // The default path typed so far counts when the box is cleared.
        m_properties.defaultDataPath = m_defaultPath->text();
        m_properties.setUseTesseraDefault(checked);
        m_currentPath->setText(m_properties.currentDataPath());
    });
    connect(m_browseFolder, &QPushButton::clicked, this, [this] {
        const QString folder = chooseFolder(m_defaultPath->text());
        if (!folder.isEmpty())
            m_defaultPath->setText(folder);
    });
    connect(m_browseCurve, &QPushButton::clicked, this, [this] {
        const QString file = chooseCurveFile(m_curveFile->text());
        if (!file.isEmpty())
            m_curveFile->setText(file);
    });

    auto* form = new QFormLayout(page);
    for (QCheckBox* box : {m_loadOnStartup, m_searchFolders, m_tesseraDefault, m_showLookup,
                           m_oldCurve, m_userFormats})
        form->addRow(box);
    form->addRow(userText("309087", "Default Data Path"),
                 withButton(m_defaultPath, m_browseFolder));
    form->addRow(userText("309088", "Current Data Path"), m_currentPath);
    auto* devices = new QHBoxLayout;
    devices->addWidget(m_maxDevices);
    devices->addWidget(new QLabel(userText("309089", "Current Max # of Devices"), page));
    devices->addWidget(m_currentMaxDevices);
    form->addRow(userText("309090", "Max # of Devices in Collection"), devices);
    form->addRow(userText("309091", "Max # of data points (cells) per grid for Historical Log"),
                 m_maxDataPoints);
    form->addRow(userText("309092", "Data Format (Except for user defined Scaled Energy formats)"),
                 m_dataFormat);
    form->addRow(userText("309073", "PQ Graph Boundary Line File"),
                 withButton(m_curveFile, m_browseCurve));
    m_curveLibrary = new QComboBox(page);
    connect(m_curveLibrary, &QComboBox::activated, this, [this](int index) {
        const QString path = m_curveLibrary->itemData(index).toString();
        if (!path.isEmpty())
            m_curveFile->setText(QDir::toNativeSeparators(path));
    });
    form->addRow(userText("309095", "Curve library"), m_curveLibrary);
    setCurveLibrary({});
    return page;
}

void SysSetupFrm::setCurveLibrary(const QString& folder)
{
    m_curveLibrary->clear();
    const QList<CurveLibrary::Entry> files = CurveLibrary::files(folder);
    m_curveLibrary->addItem(files.isEmpty() ? userText("309096", "(no curves delivered)")
                                            : userText("309097", "(choose a curve)"));
    for (const CurveLibrary::Entry& entry : files)
        m_curveLibrary->addItem(entry.name, entry.path);
    m_curveLibrary->setEnabled(!files.isEmpty());
}

void SysSetupFrm::showFields()
{
    m_loadOnStartup->setChecked(m_properties.loadDatabaseOnStartup);
    m_searchFolders->setChecked(m_properties.autoSearchAdditionalFolders);
    m_tesseraDefault->setChecked(m_properties.useTesseraDefault());
    m_showLookup->setChecked(m_properties.showLookupData);
    m_oldCurve->setChecked(m_properties.useOldCBEMACurve);
    m_userFormats->setChecked(m_properties.useUserDefinedFormats);
    m_defaultPath->setText(m_properties.defaultDataPath);
    m_currentPath->setText(m_properties.currentDataPath());
    m_maxDevices->setText(m_properties.maxDevices);
    m_currentMaxDevices->setText(QString::number(m_properties.currentMaxDevices()));
    m_maxDataPoints->setText(m_properties.maxDataPoints);
    m_dataFormat->setCurrentText(m_properties.dataFormat);
    m_curveFile->setText(m_properties.pqCurveFile);
}

void SysSetupFrm::collectFields()
{
    m_properties.loadDatabaseOnStartup = m_loadOnStartup->isChecked();
    m_properties.autoSearchAdditionalFolders = m_searchFolders->isChecked();
    m_properties.defaultDataPath = m_defaultPath->text();
    m_properties.setUseTesseraDefault(m_tesseraDefault->isChecked());
    m_properties.showLookupData = m_showLookup->isChecked();
    m_properties.useOldCBEMACurve = m_oldCurve->isChecked();
    m_properties.useUserDefinedFormats = m_userFormats->isChecked();
    m_properties.maxDevices = m_maxDevices->text();
    m_properties.maxDataPoints = m_maxDataPoints->text();
    m_properties.dataFormat = m_dataFormat->currentText();
    m_properties.pqCurveFile = m_curveFile->text();
}

bool SysSetupFrm::applyClicked()
{
    collectFields();
    if (!m_properties.apply()) {
        userMessages().show(m_properties.errorMessage(), UserMessages::Icon::Warning,
                            windowTitle());
        return false;
    }
    showFields();
    emit settingsApplied();
    return true;
}

void SysSetupFrm::okClicked()
{
    if (applyClicked())
        accept();
}

} // namespace lorvane
