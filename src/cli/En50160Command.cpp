// SPDX-License-Identifier: GPL-3.0-or-later
#include "En50160Command.h"

#include "CliOutput.h"
#include "CommandBoundary.h"
#include "ExitCode.h"
#include "GridPrinter.h"
#include "LabelCommand.h"
#include "MeterArguments.h"
#include "ScratchTemplate.h"
#include "en50160/PqTestEvaluation.h"
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "platform/SqliteDatabase.h"
#include "query/views/en50160/PqTestList.h"
#include "store/TempQueryDatabase.h"
#include "store/WallClock.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>
#include <memory>

namespace lorvane::cli {

namespace {

struct Options
{
    QString action;
    QStringList meters;
    QDateTime from;
    QDateTime to;
    qint64 test = -1;
    bool json = false;
    QString format = QStringLiteral("csv");
    QString templatePath;
    QString dictionaryPath;
};

int parse(const QStringList& arguments, Options& o)
{
    o.action = arguments.value(0);
    if (o.action != QLatin1String("list") && o.action != QLatin1String("evaluate"))
        return CliOutput::usage(QStringLiteral("en50160 needs list or evaluate"));
    for (qsizetype i = 1; i < arguments.size(); ++i) {
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
        } else if (a == QLatin1String("--test")) {
            bool ok = false;
            o.test = value.toLongLong(&ok);
            if (!ok || o.test < 0)
                return CliOutput::usage(QStringLiteral("--test needs a test id (ID_PQTest)"));
        } else if (a == QLatin1String("--format")) {
            if (!GridPrinter::knownFormat(value))
                return CliOutput::usage(QStringLiteral("--format is csv or json"));
            o.format = value;
        } else if (a == QLatin1String("--template")) {
            o.templatePath = value;
        } else if (a == QLatin1String("--dictionary")) {
            o.dictionaryPath = value;
        } else {
            return CliOutput::usage(QStringLiteral("unknown option for en50160: ") + a);
        }
    }
    const bool list = o.action == QLatin1String("list");
    if (o.meters.isEmpty() || o.meters.size() > (list ? 2 : 1))
        return CliOutput::usage(list ? QStringLiteral("en50160 list needs one or two --meter")
                                     : QStringLiteral("en50160 evaluate needs one --meter"));
    if (list && !(o.from.isValid() && o.to.isValid()))
        return CliOutput::usage(QStringLiteral("en50160 list needs --from and --to"));
    if (!list && o.test < 0)
        return CliOutput::usage(QStringLiteral("en50160 evaluate needs --test ID"));
    return Success;
}

QJsonObject evaluationJson(const PqTestEvaluation& e)
{
    QJsonObject pages;
    for (int page = 0; page < en50160PageCount; ++page)
        pages.insert(en50160PageKey(page), PageEvaluation::word(e.verdicts[size_t(page)]));
    QJsonArray events;
    for (const VoltageEvent& event : e.events) {
        events.append(QJsonObject{{QStringLiteral("type"), VoltageEvent::typeKey(event.type)},
                                  {QStringLiteral("channel"), event.channel},
                                  {QStringLiteral("start"), event.start},
                                  {QStringLiteral("end"), event.end},
                                  {QStringLiteral("minValue"), event.minValue},
                                  {QStringLiteral("minPercent"), event.minPercent}});
    }
    const QJsonObject counts{{QStringLiteral("N1"), qint64(e.statistics.n1())},
                             {QStringLiteral("N2"), qint64(e.statistics.n2())},
                             {QStringLiteral("N3"), qint64(e.statistics.n3())}};
    return QJsonObject{{QStringLiteral("pages"), pages},
                       {QStringLiteral("events"), events},
                       {QStringLiteral("counts"), counts}};
}

void printText(const PqTestEvaluation& e)
{
    QTextStream out(stdout);
    for (int page = 0; page < en50160PageCount; ++page)
        out << en50160PageKey(page) << ' ' << PageEvaluation::word(e.verdicts[size_t(page)])
            << '\n';
    out << "N1 " << e.statistics.n1() << ", N2 " << e.statistics.n2() << ", N3 "
        << e.statistics.n3() << '\n';
    for (const VoltageEvent& event : e.events)
        out << VoltageEvent::typeKey(event.type) << ' ' << event.channel << ' ' << event.start
            << " - " << event.end << ' ' << event.minValue << ' ' << event.minPercent << "%\n";
}

int runList(const Options& o, TempQueryDatabase& scratch, const QList<LogFileEntry>& meters)
{
    const GridTable grid = PqTestList::list(scratch, meters, o.from, o.to);
    QTextStream out(stdout);
    GridPrinter::print(out, {grid}, o.format);
    return Success;
}

int runEvaluate(const Options& o, TempQueryDatabase& scratch, const QList<LogFileEntry>& meters)
{
    // The test is found through the same list the window shows, over every period the meter
    // can hold, so the evaluation starts from the row a user would pick.
    const GridTable grid = PqTestList::list(scratch, meters, WallClock::at(QDate(1, 1, 1), {0, 0}),
                                            WallClock::at(QDate(9999, 12, 31), {23, 59, 59}));
    qsizetype row = -1;
    for (qsizetype i = 0; i < grid.rowKeys.size() && row < 0; ++i) {
        if (grid.rowKeys.at(i).value(QStringLiteral("SourceDB_idon")).toLongLong() == o.test)
            row = i;
    }
    if (row < 0) {
        CliOutput::error(QStringLiteral("no EN 50160 test %1 in %2")
                             .arg(o.test)
                             .arg(PqTestList::testLogFile(meters.first())));
        return Failure;
    }
    std::unique_ptr<SqliteDatabase> dictionary;
    if (QFileInfo(o.dictionaryPath).isFile())
        dictionary =
            std::make_unique<SqliteDatabase>(o.dictionaryPath, SqliteDatabase::Mode::ReadOnly);
    SilentProgress progress;
    const PqTestEvaluation evaluation = PqTestEvaluation::run(
        PqTestRow::fromKeys(grid.rowKeys.at(row)), dictionary.get(), progress);
    if (o.json)
        QTextStream(stdout) << QJsonDocument(evaluationJson(evaluation)).toJson();
    else
        printText(evaluation);
    return Success;
}

} // namespace

int En50160Command::run(const QStringList& arguments)
{
    Options o;
    if (const int code = parse(arguments, o); code != Success)
        return code;
    if (o.templatePath.isEmpty())
        o.templatePath = installedTemplate();
    if (o.dictionaryPath.isEmpty())
        o.dictionaryPath = LabelCommand::installedDictionary();
    QList<LogFileEntry> meters;
    try {
        for (const QString& given : o.meters) {
            const std::optional<LogFileEntry> entry =
                MeterArguments::open(given, int(meters.size()));
            if (!entry)
                return FileMissing;
            meters << *entry;
        }
        QTemporaryDir folder;
        if (!folder.isValid()) {
            CliOutput::error(QStringLiteral("cannot make a scratch folder: ") +
                             folder.errorString());
            return Failure;
        }
        auto scratch = createScratch(o.templatePath, folder.path());
        const int code = o.action == QLatin1String("list") ? runList(o, *scratch, meters)
                                                           : runEvaluate(o, *scratch, meters);
        scratch->closeAndDelete();
        return code;
    } catch (const Fault& fault) {
        QStringList paths;
        for (const LogFileEntry& meter : meters)
            paths << meter.dbPath;
        rethrowNaming(fault, paths.join(QStringLiteral(", ")));
    }
}

} // namespace lorvane::cli
