// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphModule.h"

#include "platform/ProfileFile.h"

#include <algorithm>

namespace lorvane {

namespace {

const QString commentSection = QStringLiteral("Comment Block");
const std::array<QString, 2> commentKeys{QStringLiteral("Line 1"), QStringLiteral("Line 2")};
const std::array<QString, 3> componentKeys{QStringLiteral("Red"), QStringLiteral("Green"),
                                           QStringLiteral("Blue")};

int readComponent(const ProfileFile& file, const QString& section, const QString& key, int fallback)
{
    bool ok = false;
    const int value = file.readString(section, key, {}).toInt(&ok);
    return ok ? std::clamp(value, 0, 255) : fallback;
}

} // namespace

PowerGraphDefaults::Colors PowerGraphDefaults::factoryColors(PGraphView::Kind kind)
{
    const PGraphColor black{0, 0, 0};
    const PGraphColor white{255, 255, 255};
    const bool circle = kind == PGraphView::Kind::Circular;
    return {PGraphColor{255, 0, 0},   PGraphColor{0, 255, 0},   PGraphColor{0, 0, 255},
            PGraphColor{0, 255, 255}, PGraphColor{255, 0, 255}, PGraphColor{255, 255, 0},
            circle ? black : white,   circle ? white : black};
}

QString PowerGraphDefaults::section(PGraphView::Kind kind, int entry)
{
    const QString prefix = kind == PGraphView::Kind::Circular ? QStringLiteral("Circle Channel")
                                                              : QStringLiteral("XY Channel");
    return prefix + QString::number(entry + 1) + QStringLiteral(" Color");
}

QString PGraphModule::componentText(int value)
{
    return QString::number(std::clamp(value, 0, 255)).leftJustified(3, QLatin1Char(' '));
}

PowerGraphDefaults PGraphModule::LoadPowerGraphDefaults(const QString& settingsFile)
{
    const ProfileFile file(settingsFile);
    PowerGraphDefaults out;
    for (const PGraphView::Kind kind : {PGraphView::Kind::Circular, PGraphView::Kind::XY}) {
        for (int entry = 0; entry < PowerGraphDefaults::colorEntries; ++entry) {
            PGraphColor& c = out.of(kind).at(size_t(entry));
            const QString section = PowerGraphDefaults::section(kind, entry);
            c.red = readComponent(file, section, componentKeys[0], c.red);
            c.green = readComponent(file, section, componentKeys[1], c.green);
            c.blue = readComponent(file, section, componentKeys[2], c.blue);
        }
    }
    for (size_t i = 0; i < commentKeys.size(); ++i)
        out.comment.at(i) = file.readString(commentSection, commentKeys.at(i), {});
    return out;
}

bool PGraphModule::SavePowerGraphDefaults(const QString& settingsFile,
                                          const PowerGraphDefaults& defaults)
{
    ProfileFile file(settingsFile);
    for (const PGraphView::Kind kind : {PGraphView::Kind::Circular, PGraphView::Kind::XY}) {
        for (int entry = 0; entry < PowerGraphDefaults::colorEntries; ++entry) {
            const PGraphColor& c = defaults.of(kind).at(size_t(entry));
            const QString section = PowerGraphDefaults::section(kind, entry);
            const std::array<int, 3> values{c.red, c.green, c.blue};
            for (size_t k = 0; k < componentKeys.size(); ++k)
                if (!file.writeString(section, componentKeys.at(k), componentText(values.at(k))))
                    return false;
        }
    }
    for (size_t i = 0; i < commentKeys.size(); ++i)
        if (!file.writeString(commentSection, commentKeys.at(i), defaults.comment.at(i)))
            return false;
    return true;
}

} // namespace lorvane
