// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/SystemProperties.h"

#include <QDialog>
#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace lorvane {

/// "System Properties": page "General" over the settings of section `LocalSystem`. The
/// fields are those of `SystemProperties`; this window only shows and collects them.
class SysSetupFrm : public QDialog
{
    Q_OBJECT

public:
    /// Edits `settings` (the run-wide record), written to `settingsFile`; `userSetting` reads
    /// the sibling program's default path.
    SysSetupFrm(LocalSystemSettings& settings, const QString& settingsFile,
                LocalSystemSettings::UserSettingReader userSetting, QWidget* parent = nullptr);

    /// "&Apply": writes the section and reads it again; false (message shown) when the file
    /// cannot be written, the fields keep what was typed.
    bool applyClicked();
    /// "&OK": as "&Apply", then closes the dialog when it worked.
    void okClicked();

    /// Pickers behind the two "&Browse" buttons; tests replace them. Empty means cancelled.
    std::function<QString(const QString& current)> chooseFolder;
    std::function<QString(const QString& current)> chooseCurveFile;

    QCheckBox* loadOnStartupBox() const { return m_loadOnStartup; }
    QCheckBox* tesseraDefaultBox() const { return m_tesseraDefault; }
    QLineEdit* defaultPathEdit() const { return m_defaultPath; }
    QLineEdit* currentPathEdit() const { return m_currentPath; }
    QLineEdit* maxDevicesEdit() const { return m_maxDevices; }
    QLineEdit* maxDataPointsEdit() const { return m_maxDataPoints; }
    QComboBox* dataFormatBox() const { return m_dataFormat; }
    QLineEdit* curveFileEdit() const { return m_curveFile; }
    QPushButton* folderBrowseButton() const { return m_browseFolder; }
    QPushButton* curveBrowseButton() const { return m_browseCurve; }
    /// Offers the boundary line files of `folder` (the program data's curve library) in the
    /// "Curve library" list; choosing one puts its path into the boundary line file field.
    void setCurveLibrary(const QString& folder);
    QComboBox* curveLibraryList() const { return m_curveLibrary; }

signals:
    /// "&Help" was pressed.
    void helpRequested(const QString& topic);
    /// OK or Apply wrote the file and read section `LocalSystem` back into the settings: the
    /// windows that hold something derived from them take it up now.
    void settingsApplied();

private:
    QWidget* buildGeneralPage();
    void showFields();
    void collectFields();

    SystemProperties m_properties;
    QCheckBox* m_loadOnStartup = nullptr;
    QCheckBox* m_searchFolders = nullptr;
    QCheckBox* m_tesseraDefault = nullptr;
    QCheckBox* m_showLookup = nullptr;
    QCheckBox* m_oldCurve = nullptr;
    QCheckBox* m_userFormats = nullptr;
    QLineEdit* m_defaultPath = nullptr;
    QLineEdit* m_currentPath = nullptr;
    QLineEdit* m_maxDevices = nullptr;
    QLabel* m_currentMaxDevices = nullptr;
    QLineEdit* m_maxDataPoints = nullptr;
    QComboBox* m_dataFormat = nullptr;
    QLineEdit* m_curveFile = nullptr;
    QPushButton* m_browseFolder = nullptr;
    QPushButton* m_browseCurve = nullptr;
    QComboBox* m_curveLibrary = nullptr;
};

} // namespace lorvane
