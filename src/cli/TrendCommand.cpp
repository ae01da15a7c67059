// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendCommand.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "MeterArguments.h"
#include "platform/LoadProgress.h"
#include "store/StampedTime.h"
#include "trend/TrendSession.h"
#include "trend/TrendTime.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QTextStream>

namespace lorvane::cli {

namespace {

struct Options
{
    QStringList meters;
    QList<qint32> points;
    QDateTime from;
    QDateTime to;
    LogKind log = LogKind::Snapshots;
    ExtentsRule rule = ExtentsRule::Default;
    bool json = false;
    QString out;
};

/// Reads `arguments` into `o`; the usage exit code with its message on a fault.
int parse(const QStringList& arguments, Options& o)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString a = arguments.at(i);
        if (a == QLatin1String("--json")) {
            o.json = true;
            continue;
        }
        if (a == QLatin1String("--demand")) {
            o.log = LogKind::Demand;
            continue;
        }
        const bool known = a == QLatin1String("--meter") || a == QLatin1String("--points") ||
                           a == QLatin1String("--from") || a == QLatin1String("--to") ||
                           a == QLatin1String("--extents") || a == QLatin1String("--out");
        if (!known)
            return CliOutput::usage(QStringLiteral("unknown option: ") + a);
        if (i + 1 >= arguments.size())
            return CliOutput::usage(a + QStringLiteral(" needs a value"));
        const QString value = arguments.at(++i);
        if (a == QLatin1String("--meter")) {
            o.meters << value;
        } else if (a == QLatin1String("--points")) {
            for (const QString& part : value.split(QLatin1Char(','))) {
                bool ok = false;
                o.points << part.trimmed().toInt(&ok);
                if (!ok)
                    return CliOutput::usage(QStringLiteral("--points needs data ids: ") + value);
            }
        } else if (a == QLatin1String("--from") || a == QLatin1String("--to")) {
            if (const int code = MeterArguments::takeRangeEnd(a, value, o.from, o.to);
                code != Success)
                return code;
        } else if (a == QLatin1String("--extents")) {
            const QStringList rules{QStringLiteral("default"), QStringLiteral("nonzero"),
                                    QStringLiteral("intelligent")};
            if (!rules.contains(value))
                return CliOutput::usage(QStringLiteral("--extents is default, nonzero or "
                                                       "intelligent"));
            o.rule = ExtentsRule(rules.indexOf(value));
        } else {
            o.out = value;
        }
    }
    if (o.meters.isEmpty() || o.meters.size() > 2)
        return CliOutput::usage(QStringLiteral("give one or two --meter FILE"));
    if ((o.points.isEmpty() || !o.from.isValid() || !o.to.isValid()))
        return CliOutput::usage(QStringLiteral("trend needs --points, --from and --to"));
    return Success;
}

QJsonValue number(double v)
{
    return std::isnan(v) ? QJsonValue() : QJsonValue(v);
}

QString stampText(double ms)
{
    return StampedTime(TrendTime::clock(ms), std::fmod(ms, 1000.0), 0)
        .text(QStringLiteral("yyyy-MM-dd HH:mm:ss"), QLocale::c(),
              StampedTime::Fraction::Thousandths);
}

bool writeCsv(const TrendView& view, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        return false;
    QTextStream out(&file);
    out << "DataID,Meter,Date/Time,Value\n";
    for (const GraphSet& set : view.sets)
        for (int i = 0; i < set.size(); ++i)
            out << set.dataId << ',' << set.meter + 1 << ',' << stampText(set.times.at(i)) << ','
                << QString::number(set.values.at(i), 'g', 17) << '\n';
    return out.status() == QTextStream::Ok;
}

} // namespace

int TrendCommand::run(const QStringList& arguments)
{
    Options o;
    if (const int code = parse(arguments, o); code != Success)
        return code;
    TrendRequest request;
    for (const QString& meter : o.meters) {
        LogFileEntry entry;
        entry.dbPath = meter;
        entry.used = true;
        request.meters << entry;
    }
    request.dataIds = o.points;
    request.from = o.from;
    request.to = o.to;
    request.log = o.log;
    TrendSession session;
    SilentProgress progress;
    if (const QString message = session.show(request, progress); !message.isEmpty()) {
        CliOutput::error(message.trimmed());
        return Failure;
    }
    session.applyExtents(o.rule);
    const TrendView& view = session.view();
    if (!o.out.isEmpty() && !writeCsv(view, o.out)) {
        CliOutput::error(QStringLiteral("cannot write ") + o.out);
        return Failure;
    }
    QJsonArray sets;
    for (const GraphSet& set : view.sets)
        sets.append(QJsonObject{{QStringLiteral("dataId"), set.dataId},
                                {QStringLiteral("meter"), set.meter + 1},
                                {QStringLiteral("samples"), set.size()},
                                {QStringLiteral("first"), stampText(set.times.first())},
                                {QStringLiteral("last"), stampText(set.times.last())},
                                {QStringLiteral("minimum"), number(set.minimum)},
                                {QStringLiteral("maximum"), number(set.maximum)}});
    auto range = [](const AxisRange& r) { return QJsonArray{number(r.min), number(r.max)}; };
    const bool right = !TrendExtents::of(view.sets, TrendAxis::Right).empty();
    const QJsonObject result{
        {QStringLiteral("sets"), sets},
        {QStringLiteral("left"), range(view.viewport.left)},
        {QStringLiteral("right"), right ? QJsonValue(range(view.viewport.right)) : QJsonValue()}};
    if (o.json) {
        CliOutput::printJson(result);
        return Success;
    }
    QTextStream out(stdout);
    for (const GraphSet& set : view.sets)
        out << "DataID " << set.dataId << " meter " << set.meter + 1 << ": " << set.size()
            << " samples, " << stampText(set.times.first()) << " to " << stampText(set.times.last())
            << ", min " << set.minimum << ", max " << set.maximum << '\n';
    out << "left axis " << view.viewport.left.min << " to " << view.viewport.left.max << '\n';
    if (!TrendExtents::of(view.sets, TrendAxis::Right).empty())
        out << "right axis " << view.viewport.right.min << " to " << view.viewport.right.max
            << '\n';
    return Success;
}

} // namespace lorvane::cli
