// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>

namespace lorvane {

/// Which way the report command of the EN 50160 list goes. Meters that keep their own XML
/// test results (split-log meters with an `EN50160/XML_DATA` folder beside their database)
/// get their report from the separate generator program; every other row is evaluated and
/// written by this program.
class ReportRoad
{
public:
    enum class Road
    {
        ExternalGenerator,
        Evaluation, ///< RunPQReport
    };

    /// FindMeterReportXml: the folder `EN50160/XML_DATA` beside the meter database when it
    /// holds any file, otherwise empty.
    static QString findMeterReportXml(const QString& databasePath);

    /// The road for the list's `currentRow` (from 0; -1 for none) of `rowCount` rows: the
    /// generator only for a split-log first meter whose XML folder was found, and only for a
    /// row before the last.
    static Road choose(int firstDeviceTypeId, const QString& xmlFolder, int currentRow,
                       int rowCount);

    /// The week the generator's file is named by: the day of the year plus the weekday of the
    /// first of January (Monday 0 ... Sunday 6), divided by 7 and cut to a whole number; 52
    /// when the sum is below 7, for the first days of a year that do not fill a week.
    static int week(const QDate& day);
    /// "{yyyy}_W{ww}.xml" in `xmlFolder`.
    static QString xmlFile(const QString& xmlFolder, const QDate& day);

    /// The generator program: `setting` (the stored path; empty for none) or the default in
    /// `programFolder`; when that file does not exist, the one beside the program. Empty when
    /// neither exists.
    static QString generatorPath(const QString& setting, const QString& programFolder);

    /// What the user reads when no generator is found.
    static QString generatorMissingMessage();

    /// Starts a program with its arguments and does not wait; false when it cannot start.
    using Starter = std::function<bool(const QString& program, const QStringList& arguments)>;
    /// The platform's detached start.
    static bool startDetached(const QString& program, const QStringList& arguments);

    /// RunExternalGenerator: starts the generator on the XML file of the row's week. Throws
    /// Fault with generatorMissingMessage() when there is no generator, or when it does not
    /// start.
    static void runExternalGenerator(const QString& xmlFolder, const QDate& rowDay,
                                     const QString& generator, const Starter& start);
};

} // namespace lorvane
