// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QString>

namespace lorvane::cli {

/// What lorvane-cli prints: results to stdout, messages to stderr.
class CliOutput
{
public:
    static void printJson(const QJsonObject& object);
    /// The text form of an info report.
    static void printInfo(const QJsonObject& info);
    static void warn(const QString& message);
    static void error(const QString& message);
    /// Prints the message and the usage text to stderr; returns the usage exit code.
    static int usage(const QString& message);
    static QString usageText();
};

} // namespace lorvane::cli
