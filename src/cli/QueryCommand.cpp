// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueryCommand.h"

#include "CliOutput.h"
#include "CommandBoundary.h"
#include "ExitCode.h"
#include "FaultExitCode.h"
#include "LabelCommand.h"
#include "MeterArguments.h"
#include "ScratchTemplate.h"
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "query/engine/QueryContext.h"
#include "query/engine/ViewRegistry.h"
#include "query/selection/MeterItems.h"
#include "store/SchemaCatalog.h"
#include "store/StampedTime.h"
#include "store/TempQueryDatabase.h"
#include "store/WallClock.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>
#include <memory>
#include <optional>

namespace lorvane::cli {

namespace {

struct Options
{
    QString view;
    QStringList meters;
    QList<qint64> points;
    /// The inputs, relays and demand items chosen for every meter given.
    MeterItems items;
    QDateTime from;
    QDateTime to;
    int lastCount = 0;
    QString lastUnit;
    ViewRequest request;
    QString sort;
    bool descending = false;
    QString type;
    QString format = QStringLiteral("csv");
    QString templatePath;
    QString dictionaryPath;
};

QString csvField(const QString& text)
{
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')) &&
        !text.contains(QLatin1Char('\n')))
        return text;
    QString quoted = text;
    quoted.replace(QStringLiteral("\""), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

QString csvLine(const QStringList& cells)
{
    QStringList fields;
    for (const QString& cell : cells)
        fields << csvField(cell);
    return fields.join(QLatin1Char(',')) + QLatin1Char('\n');
}

/// The newest record time the meters hold in any log: the end of a `--last` range.
QDateTime newestRecord(const QList<LogFileEntry>& files)
{
    QDateTime newest;
    for (const LogFileEntry& file : files) {
        SqliteDatabase db(file.dbPath, SqliteDatabase::Mode::ReadOnly);
        for (const QString& master : SchemaCatalog::masterTables()) {
            if (!db.tableExists(master) ||
                !db.tableHasField(master, QStringLiteral("EndDate/Time")))
                continue;
            const QString text = db.scalar(QStringLiteral("SELECT max([EndDate/Time]) FROM ") +
                                           SqlIdentifier::quote(master))
                                     .toString();
            if (text.isEmpty())
                continue;
            const QDateTime end = StampedTime::parseClock(text);
            if (!newest.isValid() || end > newest)
                newest = end;
        }
    }
    return newest;
}

std::optional<QDateTime> lastStart(const QDateTime& end, int count, const QString& unit)
{
    if (unit.startsWith(QLatin1String("minute")))
        return end.addSecs(-60LL * count);
    if (unit.startsWith(QLatin1String("hour")))
        return end.addSecs(-3600LL * count);
    if (unit.startsWith(QLatin1String("day")))
        return end.addDays(-count);
    if (unit.startsWith(QLatin1String("week")))
        return end.addDays(-7LL * count);
    return std::nullopt;
}

int parse(const QStringList& arguments, Options& o)
{
    if (arguments.isEmpty())
        return CliOutput::usage(QStringLiteral("query needs a view name"));
    o.view = arguments.first();
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& a = arguments.at(i);
        const auto value = [&](QString& out) {
            if (i + 1 >= arguments.size())
                return false;
            out = arguments.at(++i);
            return true;
        };
        QString text;
        if (a == QLatin1String("--desc")) {
            o.descending = true;
            continue;
        }
        if (a == QLatin1String("--all-pages")) {
            o.request.allPages = true;
            continue;
        }
        if (!value(text))
            return CliOutput::usage(a + QStringLiteral(" needs a value"));
        if (a == QLatin1String("--meter")) {
            o.meters << text;
        } else if (a == QLatin1String("--points") || a == QLatin1String("--demand")) {
            QList<qint64>& ids = a == QLatin1String("--points") ? o.points : o.items.demandIds;
            for (const QString& id : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
                bool ok = false;
                const qint64 n = id.trimmed().toLongLong(&ok);
                if (!ok)
                    return CliOutput::usage(QStringLiteral("not a data id: ") + id);
                ids << n;
            }
            if (o.items.demandIds.size() > MeterItems::demandCount)
                return CliOutput::usage(QStringLiteral("--demand takes at most %1 data ids")
                                            .arg(MeterItems::demandCount));
        } else if (a == QLatin1String("--inputs") || a == QLatin1String("--relays")) {
            QList<MeterItems::Channel>& chosen =
                a == QLatin1String("--inputs") ? o.items.inputs : o.items.relays;
            for (const QString& pair : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
                const QStringList parts = pair.split(QLatin1Char(':'));
                bool moduleOk = false;
                bool indexOk = false;
                const MeterItems::Channel channel{parts.value(0).trimmed().toInt(&moduleOk),
                                                  parts.value(1).trimmed().toInt(&indexOk)};
                if (parts.size() != 2 || !moduleOk || !indexOk)
                    return CliOutput::usage(a + QStringLiteral(" takes MODULE:INDEX,...: ") + pair);
                chosen << channel;
            }
        } else if (a == QLatin1String("--from") || a == QLatin1String("--to")) {
            if (const int code = MeterArguments::takeRangeEnd(a, text, o.from, o.to);
                code != Success)
                return code;
        } else if (a == QLatin1String("--last")) {
            bool ok = false;
            o.lastCount = text.toInt(&ok);
            if (!ok || o.lastCount <= 0 || !value(o.lastUnit))
                return CliOutput::usage(QStringLiteral("--last needs a count and a unit"));
        } else if (a == QLatin1String("--page")) {
            bool ok = false;
            o.request.page = text.toInt(&ok);
            if (!ok || o.request.page < 1)
                return CliOutput::usage(QStringLiteral("--page needs a number from 1"));
        } else if (a == QLatin1String("--sort")) {
            o.sort = text;
        } else if (a == QLatin1String("--type")) {
            o.type = text;
        } else if (a == QLatin1String("--format")) {
            if (text != QLatin1String("csv") && text != QLatin1String("json"))
                return CliOutput::usage(QStringLiteral("--format is csv or json"));
            o.format = text;
        } else if (a == QLatin1String("--template")) {
            o.templatePath = text;
        } else if (a == QLatin1String("--dictionary")) {
            o.dictionaryPath = text;
        } else {
            return CliOutput::usage(QStringLiteral("unknown option: ") + a);
        }
    }
    if (o.meters.isEmpty() || o.meters.size() > 2)
        return CliOutput::usage(QStringLiteral("query needs one or two --meter files"));
    const bool range = o.from.isValid() || o.to.isValid();
    if (range == (o.lastCount > 0) || (range && !(o.from.isValid() && o.to.isValid())))
        return CliOutput::usage(QStringLiteral("give either --from and --to, or --last N UNIT"));
    if (o.lastCount > 0 && !lastStart(WallClock::now(), 1, o.lastUnit))
        return CliOutput::usage(QStringLiteral("--last unit is minutes, hours, days or weeks"));
    return Success;
}

void print(const QList<ViewResult>& pages, const QString& format)
{
    QTextStream out(stdout);
    if (format == QLatin1String("json")) {
        QJsonArray list;
        for (const ViewResult& page : pages) {
            for (const GridTable& grid : page.grids) {
                const auto rows = [](const QList<QStringList>& lines) {
                    QJsonArray array;
                    for (const QStringList& line : lines)
                        array.append(QJsonArray::fromStringList(line));
                    return array;
                };
                list.append(QJsonObject{
                    {QStringLiteral("caption"), grid.caption},
                    {QStringLiteral("range"), page.rangeText},
                    {QStringLiteral("page"), page.page},
                    {QStringLiteral("pages"), page.pages},
                    {QStringLiteral("allRead"), page.allRead},
                    {QStringLiteral("noData"), page.noData},
                    {QStringLiteral("columns"), QJsonArray::fromStringList(grid.columns)},
                    {QStringLiteral("headingRows"), rows(grid.headingRows)},
                    {QStringLiteral("rows"), rows(grid.rows)}});
            }
        }
        out << QJsonDocument(list).toJson(QJsonDocument::Indented);
        return;
    }
    bool first = true;
    for (const ViewResult& page : pages) {
        for (const GridTable& grid : page.grids) {
            if (!first)
                out << '\n';
            first = false;
            out << csvLine({grid.caption, page.rangeText,
                            QStringLiteral("page %1 of %2%3")
                                .arg(page.page)
                                .arg(page.pages)
                                .arg(page.allRead ? QStringLiteral(", all read") : QString())});
            out << csvLine(grid.columns);
            for (const QStringList& heading : grid.headingRows)
                out << csvLine(heading);
            for (const QStringList& row : grid.rows)
                out << csvLine(row);
        }
    }
}

} // namespace

int QueryCommand::run(const QStringList& arguments)
{
    Options o;
    if (const int code = parse(arguments, o); code != Success)
        return code;
    const ViewDefinition* view = ViewRegistry::instance().find(o.view);
    if (!view)
        return CliOutput::usage(
            QStringLiteral("unknown view: ") + o.view + QStringLiteral(" (views: ") +
            ViewRegistry::instance().names().join(QStringLiteral(", ")) + QLatin1Char(')'));
    if (o.templatePath.isEmpty())
        o.templatePath = installedTemplate();
    if (o.dictionaryPath.isEmpty())
        o.dictionaryPath = LabelCommand::installedDictionary();
    // The meters as the selection window opens them: their device records, every one used.
    QueryContext context;
    try {
        // The meters as the selection window opens them: their device records, every one used.
        for (const QString& given : o.meters) {
            std::optional<LogFileEntry> entry =
                MeterArguments::open(given, int(context.files.size()));
            if (!entry)
                return FileMissing;
            entry->items = o.items;
            context.files << *entry;
        }
        if (o.lastCount > 0) {
            o.to = newestRecord(context.files);
            if (!o.to.isValid()) {
                CliOutput::error(QStringLiteral("the meters hold no records for --last"));
                return Failure;
            }
            o.from = *lastStart(o.to, o.lastCount, o.lastUnit);
        }
        context.start = o.descending ? o.to : o.from;
        context.end = o.descending ? o.from : o.to;
        context.descending = o.descending;
        context.dataIds = o.points;
        context.sortColumn = o.sort;
        if (!o.type.isEmpty()) {
            bool numeric = false;
            context.typeFilter = o.type.toInt(&numeric);
            if (!numeric) {
                // The grouping list: "All Snapshots", "Group By Type", then the type names,
                // each at the position of the TypeID it stands for.
                const qsizetype at = SchemaCatalog::snapshotTypeNames().indexOf(o.type);
                if (at < 0)
                    return CliOutput::usage(QStringLiteral("unknown record type: ") + o.type);
                context.groupByType = at == 1;
                context.typeFilter = at >= 2 ? int(at) : 0;
            }
        }

        std::unique_ptr<SqliteDatabase> dictionary;
        if (QFileInfo(o.dictionaryPath).isFile())
            dictionary =
                std::make_unique<SqliteDatabase>(o.dictionaryPath, SqliteDatabase::Mode::ReadOnly);
        else
            CliOutput::warn(QStringLiteral("no dictionary at ") + o.dictionaryPath +
                            QStringLiteral(": data points are shown by number"));
        context.dictionary = dictionary.get();

        QTemporaryDir scratchFolder;
        if (!scratchFolder.isValid()) {
            CliOutput::error(QStringLiteral("cannot make a scratch folder: ") +
                             scratchFolder.errorString());
            return Failure;
        }
        auto scratch = createScratch(o.templatePath, scratchFolder.path());
        context.scratch = scratch.get();
        SilentProgress progress;
        context.progress = &progress;
        const QList<ViewResult> pages = view->run(context, o.request);
        scratch->closeAndDelete();
        print(pages, o.format);
        return Success;
    } catch (const Fault& fault) {
        QStringList paths;
        for (const LogFileEntry& file : context.files)
            paths << file.dbPath;
        rethrowNaming(fault, paths.join(QStringLiteral(", ")));
    }
}

} // namespace lorvane::cli
