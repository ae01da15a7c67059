// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace lorvane::test {

/// Path of a program of the build tree (`lorvane-sim`, `lorvane-cli` ...).
QString programPath(const QString& name);
/// The program data folder of the build tree (share/lorvane).
QString dataFolder();

struct ProcessResult
{
    int exitCode = -1;
    QString out;
    QString err;
};

/// Runs a program of the build tree to its end (at most two minutes) and returns what it said.
/// Runs a program of the build; `environment` adds or replaces variables ("TZ=Europe/Berlin").
ProcessResult runProgram(const QString& name, const QStringList& arguments,
                         const QStringList& environment = {});

} // namespace lorvane::test
