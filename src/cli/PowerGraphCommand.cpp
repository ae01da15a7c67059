// SPDX-License-Identifier: GPL-3.0-or-later
#include "PowerGraphCommand.h"

#include "CliOutput.h"
#include "CommandBoundary.h"
#include "ExitCode.h"
#include "LabelCommand.h"
#include "MeterArguments.h"
#include "ScratchTemplate.h"
#include "graph/paint/PictureFile.h"
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "platform/SqliteDatabase.h"
#include "powergraph/CircularChart.h"
#include "powergraph/PGraphChoiceCheck.h"
#include "powergraph/PGraphExport.h"
#include "powergraph/PGraphRecords.h"
#include "powergraph/PGraphScale.h"
#include "powergraph/PGraphSession.h"
#include "powergraph/PGraphTimeText.h"
#include "powergraph/paint/PGraphPicture.h"
#include "query/engine/QueryContext.h"
#include "query/views/snapshot/SnapshotView.h"
#include "store/StampedTime.h"
#include "store/TempQueryDatabase.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QPainter>
#include <QTemporaryDir>
#include <QTextStream>

namespace lorvane::cli {

namespace {

struct Options
{
    QString meter;
    QList<qint64> points;
    QDateTime from;
    QDateTime to;
    bool demand = false;
    PGraphView::Kind kind = PGraphView::Kind::Circular;
    PGraphSession::Entries entries{
        QStringLiteral("130"), QStringLiteral("0"), QStringLiteral("1"), {}};
    bool json = false;
    QString out;
};

int parse(const QStringList& arguments, Options& o)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& a = arguments.at(i);
        if (a == QLatin1String("--json")) {
            o.json = true;
            continue;
        }
        if (a == QLatin1String("--demand")) {
            o.demand = true;
            continue;
        }
        if (i + 1 >= arguments.size())
            return CliOutput::usage(a + QStringLiteral(" needs a value"));
        const QString value = arguments.at(++i);
        if (a == QLatin1String("--meter")) {
            o.meter = value;
        } else if (a == QLatin1String("--points")) {
            for (const QString& id : value.split(QLatin1Char(','))) {
                bool ok = false;
                o.points << id.trimmed().toLongLong(&ok);
                if (!ok)
                    return CliOutput::usage(QStringLiteral("--points takes ID,ID,...: ") + id);
            }
        } else if (a == QLatin1String("--from") || a == QLatin1String("--to")) {
            if (const int code = MeterArguments::takeRangeEnd(a, value, o.from, o.to);
                code != Success)
                return code;
        } else if (a == QLatin1String("--kind")) {
            if (value != QLatin1String("circular") && value != QLatin1String("xy"))
                return CliOutput::usage(QStringLiteral("--kind is circular or xy"));
            o.kind =
                value == QLatin1String("xy") ? PGraphView::Kind::XY : PGraphView::Kind::Circular;
        } else if (a == QLatin1String("--days")) {
            o.entries.numDaysView = value;
        } else if (a == QLatin1String("--start")) {
            const std::optional<QDateTime> start = MeterArguments::parseTime(value, false);
            if (!start)
                return CliOutput::usage(QStringLiteral("not a time (YYYY-MM-DD[ HH:MM:SS]): ") +
                                        value);
            o.entries.start = PGraphTimeText::entry(start->toMSecsSinceEpoch());
        } else if (a == QLatin1String("--out")) {
            if (!PictureFile::knownSuffix(value))
                return CliOutput::usage(QStringLiteral("--out takes a .png, .svg or .pdf file"));
            o.out = value;
        } else if (a == QLatin1String("--min")) {
            o.entries.minY = value;
        } else if (a == QLatin1String("--max")) {
            o.entries.maxY = value;
        } else {
            return CliOutput::usage(QStringLiteral("unknown option: ") + a);
        }
    }
    if (o.meter.isEmpty() || !o.from.isValid() || !o.to.isValid())
        return CliOutput::usage(QStringLiteral("power-graph needs --meter, --from and --to"));
    if (const std::optional<QString> refused = PGraphChoiceCheck::check(o.points.size()))
        return CliOutput::usage(*refused);
    return Success;
}

QJsonObject viewJson(const PGraphSession& session)
{
    const PGraphView& view = session.view();
    QJsonArray items;
    for (int i = 0; i < session.items().size(); ++i) {
        const PGraphItem& item = session.items().at(i);
        QJsonArray records;
        for (const PGraphRecord& r : session.visible(i)) {
            QJsonObject record{
                {QStringLiteral("time"), PGraphTimeText::entry(r.time)},
                {QStringLiteral("value"), r.value},
                {QStringLiteral("share"), PGraphScale::share(r.value, view.minY, view.maxY)}};
            const double share = double(r.time - view.start) / double(view.spanMs());
            if (view.kind == PGraphView::Kind::Circular)
                record.insert(QStringLiteral("angle"),
                              CircularChart::recordAngle(r.time, view.start, view.numDaysView));
            else
                record.insert(QStringLiteral("x"), share);
            records.append(record);
        }
        items.append(
            QJsonObject{{QStringLiteral("name"), item.name},
                        {QStringLiteral("deviceIndex"), item.deviceIndex},
                        {QStringLiteral("dataId"), item.dataId},
                        {QStringLiteral("max"), item.maximum()},
                        {QStringLiteral("min"), item.minimum()},
                        {QStringLiteral("maxText"), PGraphScale::valueText(item.maximum())},
                        {QStringLiteral("minText"), PGraphScale::valueText(item.minimum())},
                        {QStringLiteral("records"), records}});
    }
    return {{QStringLiteral("kind"), view.kind == PGraphView::Kind::Circular
                                         ? QStringLiteral("circular")
                                         : QStringLiteral("xy")},
            {QStringLiteral("period"), PGraphTimeText::period(view)},
            {QStringLiteral("start"), PGraphTimeText::entry(view.start)},
            {QStringLiteral("numDaysView"), view.numDaysView},
            {QStringLiteral("minY"), view.minY},
            {QStringLiteral("maxY"), view.maxY},
            {QStringLiteral("totalRecords"), session.totalRecords()},
            {QStringLiteral("recordsInView"), session.recordsInView()},
            {QStringLiteral("items"), items}};
}

} // namespace

int PowerGraphCommand::run(const QStringList& arguments)
{
    Options o;
    if (const int code = parse(arguments, o); code != Success)
        return code;
    QueryContext context;
    try {
        const std::optional<LogFileEntry> entry = MeterArguments::open(o.meter, 0);
        if (!entry)
            return FileMissing;
        context.files << *entry;
        context.start = o.from;
        context.end = o.to;
        context.dataIds = o.points;
        std::unique_ptr<SqliteDatabase> dictionary;
        const QString dictionaryPath = LabelCommand::installedDictionary();
        if (QFileInfo(dictionaryPath).isFile())
            dictionary =
                std::make_unique<SqliteDatabase>(dictionaryPath, SqliteDatabase::Mode::ReadOnly);
        QTemporaryDir scratchFolder;
        if (!scratchFolder.isValid()) {
            CliOutput::error(QStringLiteral("cannot make a scratch folder: ") +
                             scratchFolder.errorString());
            return Failure;
        }
        auto scratch = createScratch(installedTemplate(), scratchFolder.path());
        context.scratch = scratch.get();
        SilentProgress progress;
        context.progress = &progress;
        // The window draws every page the grid has read; here the query is read to its end.
        SnapshotView view(context, o.demand ? LogKind::Demand : LogKind::Snapshots);
        view.load();
        while (!view.pager().allRead())
            view.step(1);
        const QList<PGraphChoice> offered =
            PGraphRecords::choices(*scratch, view.numbers().query, dictionary.get());
        QList<PGraphChoice> chosen;
        for (const PGraphChoice& choice : offered)
            if (o.points.contains(choice.dataId))
                chosen << choice;
        PGraphView start;
        start.kind = o.kind;
        PGraphSession session(PGraphRecords::load(*scratch, view.numbers().query, chosen, nullptr),
                              start);
        if (o.entries.start.isEmpty())
            o.entries.start = session.entries().start;
        if (const std::optional<QString> refused = session.apply(o.entries))
            return CliOutput::usage(*refused);
        scratch->closeAndDelete();
        if (!o.out.isEmpty()) {
            // The window's drawing in the chart kind's factory colours.
            const PGraphPicture picture(
                &session, PGraphPalette(PowerGraphDefaults::factoryColors(o.kind), false));
            const auto paint = [&picture](QPainter& painter, const QRectF& area) {
                picture.paint(painter, area);
            };
            if (!PictureFile::save(o.out, {1150, 720}, QStringLiteral("Power Graph"), paint)) {
                CliOutput::error(QStringLiteral("cannot write ") + o.out);
                return Failure;
            }
        } else if (o.json)
            CliOutput::printJson(viewJson(session));
        else
            QTextStream(stdout) << PGraphExport::csv(session.items());
        return Success;
    } catch (const Fault& fault) {
        rethrowNaming(fault, o.meter);
    }
}

} // namespace lorvane::cli
