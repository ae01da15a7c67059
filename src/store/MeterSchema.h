// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LogKind.h"
#include "TableLayout.h"

#include <QList>

namespace lorvane {

/// Table layouts of a meter database at a schema version: the file-wide tables and the
/// per-day and per-hour tables. Writers create files from it, readers and tests check files
/// against it. From 9.0 the PQ and waveform ms columns hold real milliseconds with a tenth;
/// 9.1 adds the user item labels. A version below 8.6 holds the 8.6 layout minus what the
/// later upgrade steps add (the tables they create, the columns they add); 7.55 has the
/// layout of 7.5 and 7.8 that of 7.7, as no step leads to or from them.
class MeterSchema
{
public:
    static constexpr double currentVersion = 8.6;

    explicit MeterSchema(double version = currentVersion);

    double version() const { return m_version; }

    /// The tables every file of this version holds, in creation order.
    QList<TableLayout> fileTables() const;
    /// One file-wide table by name (any case); an empty layout when unknown.
    TableLayout table(const QString& name) const;

    /// Per-day table of limits, inputs, relays, flicker, waveform, PQ or system events.
    TableLayout dayTable(LogKind kind, qint64 logTablesIndex) const;
    /// Hour tables of snapshots or demand.
    TableLayout hourTimeIndexTable(LogKind kind, qint64 logTablesIndex, int hour) const;
    TableLayout hourValueTable(LogKind kind, qint64 logTablesIndex, int hour) const;

    // The layouts that per-log tables copy.
    TableLayout limitsLog() const;
    TableLayout pqLog() const;
    TableLayout waveformLog() const;
    TableLayout inputLog() const;
    TableLayout relayLog() const;
    TableLayout flickerMaxMin() const;
    TableLayout systemEventLog() const;
    TableLayout hourTimeIndex() const;
    TableLayout hourValues() const;

private:
    /// The version is below `version` (compared with a margin for the doubles).
    bool before(double version) const;
    /// Removes from the 8.6 file-wide tables what the steps after this version add.
    void leaveOutLaterAdditions(QList<TableLayout>& tables) const;
    /// Integer thousandths before 9.0, real milliseconds with a tenth from 9.0.
    ColumnType fractionType() const;

    double m_version;
};

} // namespace lorvane
