// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace lorvane {

struct RunContext;

/// The facts of the About box and the lines it shows them in.
struct AboutInfo
{
    QString programVersion;
    QString scratchFile;
    QString defaultDataPath;
    /// Free bytes of the scratch file's drive; -1 when unknown.
    qint64 freeSpace = -1;
    /// Size of the scratch file; -1 when it is not there.
    qint64 scratchSize = -1;
    /// `Version` of the dictionary's ID table and its file's last change; -1 when unknown.
    double dictionaryVersion = -1;
    QDateTime dictionaryChanged;
    /// `Version` and `Note` of the scratch database's ID table; -1 when unknown.
    double templateVersion = -1;
    QString templateNote;
    /// The outside conversion component's own text and version.
    QString externalToolText;
    QString externalToolVersion;

    /// Reads the facts of the running program (files and databases of `context`).
    static AboutInfo gather(RunContext& context);
    /// The lines of the box, one fact each, headed by its caption.
    QStringList lines() const;
    /// A byte count in "0.0" behind its decimal unit (" GBytes", " MBytes", " kBytes") or the
    /// plain number and " Bytes" below 1000.
    static QString sizeText(qint64 bytes);
};

} // namespace lorvane
