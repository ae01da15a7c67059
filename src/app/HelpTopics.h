// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The user guide delivered beside the program: a help topic names one of its pages.
class HelpTopics
{
public:
    /// Pages are looked for in `helpFolder` (the program data folder's "help").
    explicit HelpTopics(QString helpFolder);

    /// The help folder of a program data folder.
    static QString folderOf(const QString& progDataPath);
    /// The file name of the page of `topic`; the contents page for an unknown topic.
    static QString pageName(const QString& topic);
    /// The full path of the page of `topic`; empty when the page is not there.
    QString page(const QString& topic) const;
    /// What the user is told when the page is not there.
    static QString missingHelpMessage();

private:
    QString m_folder;
};

} // namespace lorvane
