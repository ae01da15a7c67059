// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphSettings.h"

#include "platform/ProfileFile.h"

namespace lorvane {

namespace {

const QString section = QStringLiteral("PGraph");

double readNumber(const ProfileFile& file, const QString& key, double fallback)
{
    bool ok = false;
    const double value = file.readString(section, key, {}).toDouble(&ok);
    return ok ? value : fallback;
}

bool storedTrue(const ProfileFile& file)
{
    return file.readString(section, QStringLiteral("SaveSettings"), QStringLiteral("False"))
               .compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0;
}

} // namespace

PGraphSettings PGraphSettings::read(const QString& settingsFile)
{
    const ProfileFile file(settingsFile);
    PGraphSettings out;
    out.saveSettings = storedTrue(file);
    out.numDaysView = readNumber(file, QStringLiteral("NumDaysView"), out.numDaysView);
    out.maxY = readNumber(file, QStringLiteral("MaxY"), out.maxY);
    out.minY = readNumber(file, QStringLiteral("MinY"), out.minY);
    return out;
}

bool PGraphSettings::saveOnClose(const QString& settingsFile) const
{
    ProfileFile file(settingsFile);
    if (!saveSettings) {
        if (!storedTrue(file))
            return true;
        return file.writeString(section, QStringLiteral("SaveSettings"), QStringLiteral("False"));
    }
    return file.writeString(section, QStringLiteral("SaveSettings"), QStringLiteral("True")) &&
           file.writeString(section, QStringLiteral("NumDaysView"), QString::number(numDaysView)) &&
           file.writeString(section, QStringLiteral("MaxY"), QString::number(maxY)) &&
           file.writeString(section, QStringLiteral("MinY"), QString::number(minY));
}

} // namespace lorvane
