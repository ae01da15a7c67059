// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqHistogramCommand.h"

#include "CliOutput.h"
#include "CommandBoundary.h"
#include "ExitCode.h"
#include "MeterArguments.h"
#include "ScratchTemplate.h"
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "pqgraph/PqGraphSession.h"
#include "query/engine/QueryContext.h"
#include "query/views/pq/PqView.h"
#include "store/TempQueryDatabase.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>

namespace lorvane::cli {

namespace {

struct Options
{
    QStringList meters;
    QDateTime from;
    QDateTime to;
    bool json = false;
    QString templatePath;
};

int parse(const QStringList& arguments, Options& o)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& a = arguments.at(i);
        if (a == QLatin1String("--json")) {
            o.json = true;
            continue;
        }
        if (i + 1 >= arguments.size())
            return CliOutput::usage(a + QStringLiteral(" needs a value"));
        const QString value = arguments.at(++i);
        if (a == QLatin1String("--meter")) {
            o.meters << value;
        } else if (a == QLatin1String("--from") || a == QLatin1String("--to")) {
            if (const int code = MeterArguments::takeRangeEnd(a, value, o.from, o.to);
                code != Success)
                return code;
        } else if (a == QLatin1String("--template")) {
            o.templatePath = value;
        } else {
            return CliOutput::usage(QStringLiteral("unknown option: ") + a);
        }
    }
    if (o.meters.isEmpty() || o.meters.size() > 2)
        return CliOutput::usage(QStringLiteral("pq-histogram needs one or two --meter files"));
    if (!o.from.isValid() || !o.to.isValid())
        return CliOutput::usage(QStringLiteral("pq-histogram needs --from and --to"));
    return Success;
}

QString startText(const PqEvent& event)
{
    // Milliseconds with their tenth, as the PQ grid shows them: four digits.
    return event.start + QLatin1Char('.') +
           QStringLiteral("%1").arg(qRound(event.startMs * 10), 4, 10, QLatin1Char('0'));
}

QJsonObject json(const PqGraphSession& session)
{
    QJsonArray events;
    for (int c = 0; c < PqEvents::channelCount; ++c) {
        for (const PqEvent& event : session.events()[c]) {
            events.append(QJsonObject{
                {QStringLiteral("channel"), QString::fromLatin1(PqEvents::channels()[c].name)},
                {QStringLiteral("start"), startText(event)},
                {QStringLiteral("durationSeconds"), event.durationSeconds},
                {QStringLiteral("magnitudePercent"), event.magnitudePercent}});
        }
    }
    QJsonArray counts;
    for (const auto& row : session.counts()) {
        QJsonArray cells;
        for (const qint64 cell : row)
            cells.append(cell);
        counts.append(cells);
    }
    QJsonArray sums;
    for (int m = 0; m < PqCounts::magnitudeBins; ++m) {
        const PqCounts::Sum& sum = session.sums()[m];
        sums.append(QJsonObject{
            {QStringLiteral("label"), PqCounts::magnitudeLabels().at(m)},
            {QStringLiteral("count"), sum.count},
            {QStringLiteral("cumulative"), sum.cumulative},
            {QStringLiteral("cumulativePercent"),
             sum.cumulativePercent ? QJsonValue(*sum.cumulativePercent) : QJsonValue()}});
    }
    return {{QStringLiteral("events"), events},
            {QStringLiteral("counts"), counts},
            {QStringLiteral("sums"), sums}};
}

void printText(const PqGraphSession& session)
{
    QTextStream out(stdout);
    out << "Events\nchannel\tstart\tduration s\tmagnitude %\n";
    for (int c = 0; c < PqEvents::channelCount; ++c) {
        for (const PqEvent& event : session.events()[c])
            out << PqEvents::channels()[c].name << '\t' << startText(event) << '\t'
                << event.durationSeconds << '\t' << event.magnitudePercent << '\n';
    }
    out << "\nCounts (rows: magnitude %, columns: duration)\n\t"
        << PqCounts::durationLabels().join(QLatin1Char('\t')) << '\n';
    for (int m = 0; m < PqCounts::magnitudeBins; ++m) {
        out << PqCounts::magnitudeLabels().at(m);
        for (const qint64 cell : session.counts()[m])
            out << '\t' << cell;
        out << '\n';
    }
    out << "\nSums\tCount\tCumulative\tCumulative %\n";
    for (int m = 0; m < PqCounts::magnitudeBins; ++m) {
        const PqCounts::Sum& sum = session.sums()[m];
        out << PqCounts::magnitudeLabels().at(m) << '\t' << sum.count << '\t' << sum.cumulative
            << '\t'
            << (sum.cumulativePercent ? QString::number(*sum.cumulativePercent, 'f', 2) : QString())
            << '\n';
    }
}

} // namespace

int PqHistogramCommand::run(const QStringList& arguments)
{
    Options o;
    if (const int code = parse(arguments, o); code != Success)
        return code;
    if (o.templatePath.isEmpty())
        o.templatePath = installedTemplate();
    try {
        QueryContext context;
        for (const QString& given : o.meters) {
            const std::optional<LogFileEntry> entry =
                MeterArguments::open(given, qint32(context.files.size()));
            if (!entry)
                return FileMissing;
            context.files << *entry;
        }
        QTemporaryDir scratchFolder;
        if (!scratchFolder.isValid()) {
            CliOutput::error(QStringLiteral("cannot make a scratch folder: ") +
                             scratchFolder.errorString());
            return Failure;
        }
        auto scratch = createScratch(o.templatePath, scratchFolder.path());
        context.scratch = scratch.get();
        context.start = o.from;
        context.end = o.to;
        // The graph draws every event of the range: one slice, whatever its size.
        context.tempLogRecSize = std::numeric_limits<int>::max();
        SilentProgress progress;
        context.progress = &progress;
        const ViewResult view = PqView::run(context);
        PqGraphSession session;
        session.load(scratch->database(), view.numbers, &progress);
        scratch->closeAndDelete();
        if (o.json)
            CliOutput::printJson(json(session));
        else
            printText(session);
        return Success;
    } catch (const Fault& fault) {
        rethrowNaming(fault, o.meters.join(QStringLiteral(", ")));
    }
}

} // namespace lorvane::cli
