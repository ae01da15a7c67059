// SPDX-License-Identifier: GPL-3.0-or-later
#include "AboutInfo.h"

#include "RunContext.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "store/IdTable.h"
#include "store/TempQueryDatabase.h"

#include <QFileInfo>
#include <QStorageInfo>
#include <exception>

namespace lorvane {

namespace {

QString sizeOrUnknown(qint64 bytes)
{
    return bytes < 0 ? userText("309030", "Unknown") : AboutInfo::sizeText(bytes);
}

QString versionText(double version, int decimals)
{
    return version < 0 ? userText("309030", "Unknown") : QString::number(version, 'f', decimals);
}

} // namespace

QString AboutInfo::sizeText(qint64 bytes)
{
    struct Unit
    {
        qint64 size;
        const char* id;
        const char* text;
    };
    static const Unit units[] = {{1000000000, "309031", " GBytes"},
                                 {1000000, "309032", " MBytes"},
                                 {1000, "309033", " kBytes"}};
    for (const Unit& unit : units) {
        if (bytes >= unit.size)
            return QString::number(static_cast<double>(bytes) / static_cast<double>(unit.size), 'f',
                                   1) +
                   userText(unit.id, unit.text);
    }
    return QString::number(bytes) + userText("309034", " Bytes");
}

AboutInfo AboutInfo::gather(RunContext& context)
{
    AboutInfo info;
    info.programVersion = context.title;
    info.defaultDataPath = context.settings.defaultPath;
    if (context.scratch) {
        info.scratchFile = context.scratch->path();
        try {
            info.templateVersion = context.scratch->version();
            info.templateNote = context.scratch->note();
        } catch (const std::exception&) {
            // A scratch file that cannot be read shows as unknown; the box still opens.
        }
    }
    const QFileInfo scratchFile(info.scratchFile);
    if (scratchFile.isFile())
        info.scratchSize = scratchFile.size();
    const QStorageInfo storage(scratchFile.absolutePath());
    if (!info.scratchFile.isEmpty() && storage.isValid())
        info.freeSpace = storage.bytesAvailable();
    if (context.dictionary) {
        try {
            info.dictionaryVersion = IdTable::version(*context.dictionary);
        } catch (const std::exception&) {
            // An older dictionary without its ID table shows as unknown.
        }
        info.dictionaryChanged = QFileInfo(context.dictionary->path()).lastModified();
    }
    const OutsideComponentStatus outside =
        context.outsideComponent ? context.outsideComponent() : OutsideComponentStatus();
    info.externalToolText =
        userText("309035", "DLL file is ") +
        (outside.installed ? userText("309037", "installed") : userText("309036", "not installed"));
    info.externalToolVersion = outside.version;
    return info;
}

QStringList AboutInfo::lines() const
{
    const QString changed = dictionaryChanged.isValid()
                                ? dictionaryChanged.toString(QStringLiteral("MM/dd/yyyy hh:mm:ss"))
                                : userText("309030", "Unknown");
    QString externalLine =
        userText("309045", "HALVXPWR.DLL Info") + QStringLiteral(": ") + externalToolText;
    if (!externalToolVersion.isEmpty())
        externalLine += userText("309046", ", version: ") + externalToolVersion;
    return {
        programVersion,
        userText("309040", "Current Temp Query File") + QStringLiteral(": ") + scratchFile,
        userText("309041", "Default Data Path") + QStringLiteral(": ") + defaultDataPath,
        userText("309042", "Free Space On Disk") + QStringLiteral(": ") + sizeOrUnknown(freeSpace),
        userText("309043", "Temp Query File Size") + QStringLiteral(": ") +
            sizeOrUnknown(scratchSize),
        userText("309044", "QLMNameList.DB Info") + QStringLiteral(": ") +
            userText("309047", "Version") + u' ' + versionText(dictionaryVersion, 2) +
            QStringLiteral(", ") + userText("309048", "Last Moification Date/Time By User") + u' ' +
            changed,
        userText("309049", "LorvaneTempQuery.DB Info") + QStringLiteral(": ") +
            userText("309047", "Version") + u' ' + versionText(templateVersion, 1) +
            QStringLiteral(",  ") + templateNote,
        externalLine,
    };
}

} // namespace lorvane
