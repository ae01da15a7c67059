// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// Section `PGraph` of the settings file: the view a power graph opens with, kept only when
/// "Save Settings" is on.
struct PGraphSettings
{
    bool saveSettings = false;
    double numDaysView = 1;
    double maxY = 130;
    double minY = 0;

    /// Key by key, each missing or unreadable key taking its default.
    static PGraphSettings read(const QString& settingsFile);
    /// The close of a graph: with "Save Settings" on every key is written ("True"); with it
    /// off nothing is, except that a file still saying "True" is told "False", so the box
    /// the user cleared stays clear. False when a key could not be written.
    bool saveOnClose(const QString& settingsFile) const;
};

} // namespace lorvane
