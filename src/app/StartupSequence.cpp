// SPDX-License-Identifier: GPL-3.0-or-later
#include "StartupSequence.h"

#include "BuildInfo.h"
#include "RunContext.h"
#include "StartupHost.h"
#include "platform/ProfileFile.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "platform/StoredPath.h"
#include "platform/StringCatalog.h"
#include "platform/UserText.h"
#include "store/DataPointLabel.h"
#include "store/DateTimeText.h"
#include "store/TempQueryDatabase.h"

#include <QLocale>
#include <exception>

namespace lorvane {

StartupSequence::StartupSequence(StartupHost& host, RunContext& context)
    : m_host(host), m_context(context)
{
}

StartupSequence::Outcome StartupSequence::run(const QString& commandLine)
{
    createCatalogue();
    nameProcess();
    findFolders();
    prepareScratchDatabase();
    m_context.eventTexts.fill();
    m_context.helpFile =
        StoredPath::toLocal(m_context.paths.progDataPath + "/../Tessera_Ext/Tessera Ext.Hlp");

    if (!openDictionary()) {
        signalDictionaryFailure();
        return Outcome::StoppedByDictionary;
    }

    m_context.settings.read(m_context.paths.settingsFile,
                            [this](const QString& application, const QString& section,
                                   const QString& key, const QString& defaultValue) {
                                return m_host.userSetting(application, section, key, defaultValue);
                            });
    m_context.defaultSelection.read(m_context.paths.settingsFile);
    fillFixedDataPoints();
    // A command line of blanks is still text: the command parser decides that it holds nothing.
    m_context.commandLine = commandLine;
    loadLookUpTables();

    m_host.loadMainFrame(m_context);
    m_host.showSelectionWindow();
    readTechnicianFlag();
    return Outcome::Running;
}

void StartupSequence::createCatalogue()
{
    // First of all: every text from here on may be shown to the user.
    const QString lookupFile =
        m_host.userSetting(StringCatalog::settingApplication, StringCatalog::settingSection,
                           StringCatalog::settingKey, StringCatalog::noLookupFile);
    installStringCatalog(std::make_unique<StringCatalog>(lookupFile));
}

void StartupSequence::nameProcess()
{
    m_context.processId = m_host.processId();
    // The id in the title tells two running copies apart.
    m_context.title = m_context.shortName + QStringLiteral(" (v%1.%2.%3, PID=%4)")
                                                .arg(buildinfo::versionMajor)
                                                .arg(buildinfo::versionMinor)
                                                .arg(buildinfo::versionPatch)
                                                .arg(m_context.processId);

    const DateTimeText forms(QLocale::system());
    m_context.shortDateFormat = forms.shortDateFormat();
    m_context.timeFormat = forms.timeFormat();
    m_context.numberFormat = QStringLiteral("0.00");
    m_context.headerColour = {54, 94, 174};
    m_context.headerTextColour = {255, 255, 255};
}

void StartupSequence::findFolders()
{
    StartupPaths& paths = m_context.paths;
    m_context.systemFolder = m_host.systemFolder();
    paths.pathsFile = StartupPaths::locatePathsFile(
        m_context.systemFolder,
        m_host.registryString(QStringLiteral("HKEY_LOCAL_MACHINE\\software\\qlm_software\\path"),
                              QStringLiteral("software_ini_path")));
    paths.resolveProgramFolders();
    paths.nameListDatabase = StartupPaths::locateNameList(paths.pathsFile, m_context.systemFolder);
    paths.converterFolder =
        StartupPaths::locateConverterFolder(paths.pathsFile, paths.userDataPath);
    paths.deriveFolders();
}

void StartupSequence::prepareScratchDatabase()
{
    const QString templatePath =
        StoredPath::child(m_context.paths.resourceFolder, QStringLiteral("LorvaneTempQuery.DB"));
    // Without a template or a scratch database start-up goes on; the first query reports it.
    try {
        m_context.templateFound = TempQueryDatabase::upgradeTemplate(templatePath);
    } catch (const std::exception&) {
        m_context.templateFound = false;
    }
    try {
        m_context.scratch = TempQueryDatabase::create(templatePath, m_context.paths.scratchFolder,
                                                      m_context.processId);
    } catch (const StorageError& error) {
        m_context.scratch.reset();
        m_context.scratchProblem = TempQueryDatabase::unavailable(templatePath, error);
    } catch (const std::exception& error) {
        m_context.scratch.reset();
        m_context.scratchProblem = TempQueryDatabase::unavailable(
            templatePath, StorageError(StorageError::Kind::Engine, templatePath,
                                       QString::fromLocal8Bit(error.what())));
    }
}

bool StartupSequence::openDictionary()
{
    try {
        m_context.dictionary = std::make_unique<SqliteDatabase>(m_context.paths.nameListDatabase,
                                                                SqliteDatabase::Mode::ReadOnly);
    } catch (const std::exception&) {
        return false;
    }
    return m_context.deviceTypes.loadDeviceTypes(*m_context.dictionary);
}

void StartupSequence::signalDictionaryFailure()
{
    for (const int milliseconds : beepWaits) {
        m_host.beep();
        m_host.wait(milliseconds);
    }
    m_host.beep();
}

void StartupSequence::fillFixedDataPoints()
{
    // Each label costs two statements, so the fixed points are named once here and the
    // selection window hands on the stored rows.
    const auto label = [this](qint32 id) {
        try {
            return DataPointLabel::text(*m_context.dictionary, id);
        } catch (const std::exception&) {
            return DataPointLabel::notAvailable(id);
        }
    };
    const auto fill = [&label](auto& rows, const auto& ids) {
        for (std::size_t i = 0; i < rows.size(); ++i)
            rows[i] = {false, ids[i], label(ids[i])};
    };
    fill(m_context.twelveFixedPoints, RunContext::twelveFixedIds);
    fill(m_context.sixFixedPoints, RunContext::sixFixedIds);
}

void StartupSequence::loadLookUpTables()
{
    // A dictionary without these tables still starts: values are then shown as plain numbers
    // in the settings' format.
    try {
        m_context.deviceDataLookUp.load(*m_context.dictionary);
    } catch (const std::exception&) {
    }
    try {
        m_context.deviceScaledFormats.load(*m_context.dictionary);
    } catch (const std::exception&) {
    }
}

void StartupSequence::readTechnicianFlag()
{
    ProfileFile pathsFile(m_context.paths.pathsFile);
    const QString section = QStringLiteral("QLM Tessera Ext");
    const QString key = QStringLiteral("Techmode");
    const QString value = pathsFile.readString(section, key, QStringLiteral("Not Found"));
    if (value == QLatin1String("Not Found")) {
        // Written so that the paths file shows the key to turn the technician mode on.
        pathsFile.writeString(section, key, QStringLiteral("0"));
        m_context.technicianMode = false;
        return;
    }
    m_context.technicianMode = value.trimmed().toInt() > 0;
}

} // namespace lorvane
