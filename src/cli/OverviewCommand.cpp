// SPDX-License-Identifier: GPL-3.0-or-later
#include "OverviewCommand.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "store/StampedTime.h"
#include "trend/OverviewAnalysis.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTextStream>

namespace lorvane::cli {

int OverviewCommand::run(const QStringList& arguments)
{
    QString path;
    bool analyze = false;
    bool json = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& a = arguments.at(i);
        if (a == QLatin1String("--analyze"))
            analyze = true;
        else if (a == QLatin1String("--json"))
            json = true;
        else if (a == QLatin1String("--meter") && i + 1 < arguments.size() && path.isEmpty())
            path = arguments.at(++i);
        else
            return CliOutput::usage(QStringLiteral("unexpected argument: ") + a);
    }
    if (path.isEmpty())
        return CliOutput::usage(QStringLiteral("overview takes one --meter FILE"));
    // Status lines go to stderr so that the sets on stdout stay readable by scripts.
    auto lines = [](const QString& line) { QTextStream(stderr) << line << '\n'; };
    if (analyze) {
        CliOutput::warn(QStringLiteral("writing the overview tables HistOverview_* into ") + path);
        SilentProgress progress;
        try {
            OverviewAnalysis::analyze(path, lines, progress);
        } catch (const Fault& fault) {
            if (fault.kind() != Fault::Kind::ReadOnly)
                throw;
            // Refused before anything was opened for writing: the file is as it was.
            CliOutput::error(fault.message());
            return Refused;
        }
    }
    const QList<OverviewSet> sets = OverviewAnalysis::load(path, lines);
    auto hourText = [](const QDateTime& hour) {
        return hour.isValid() ? StampedTime::storedText(hour) : QString();
    };
    if (json) {
        QJsonArray list;
        for (const OverviewSet& set : sets)
            list.append(QJsonObject{{QStringLiteral("dataId"), set.dataId},
                                    {QStringLiteral("first"), hourText(set.first)},
                                    {QStringLiteral("last"), hourText(set.last)},
                                    {QStringLiteral("totalPoints"), set.totalPoints}});
        CliOutput::printJson(QJsonObject{{QStringLiteral("sets"), list}});
        return Success;
    }
    QTextStream out(stdout);
    out << "Sets\tFirst\tLast\tTotal Points\n";
    for (const OverviewSet& set : sets)
        out << set.dataId << '\t' << hourText(set.first) << '\t' << hourText(set.last) << '\t'
            << set.totalPoints << '\n';
    return Success;
}

} // namespace lorvane::cli
