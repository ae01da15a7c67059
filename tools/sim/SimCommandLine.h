// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SimOptions.h"

#include <QString>
#include <QStringList>

namespace lorvane::sim {

/// The command line of lorvane-sim:
/// `lorvane-sim --out PATH [--kind K] [--seed N] [--start YYYY-MM-DD] [--days D]
/// [--interval-minutes M] [--points N] [--schema-version V] [--hardware-name TEXT]
/// [--overwrite] [--verbose]`, `lorvane-sim demo --out DIR [--overwrite] [--verbose]`,
/// `lorvane-sim --help`.
class SimCommandLine
{
public:
    enum class Action
    {
        Meter,
        Demo,
        Help
    };

    /// Reads the arguments after the program name. `ok()` is false with `error()` telling
    /// the user what is wrong; nothing is checked on disk here.
    explicit SimCommandLine(const QStringList& arguments);

    bool ok() const { return m_error.isEmpty(); }
    const QString& error() const { return m_error; }
    Action action() const { return m_action; }
    const SimOptions& options() const { return m_options; }

    static QString usage();
    /// Schema versions the simulator writes.
    static const QList<double>& schemaVersions();

private:
    void parse(const QStringList& arguments);
    bool number(const QString& option, const QString& text, int low, int high, int& out);

    Action m_action = Action::Meter;
    SimOptions m_options;
    QString m_error;
};

} // namespace lorvane::sim
