// SPDX-License-Identifier: GPL-3.0-or-later
#include "CliOutput.h"

#include "ExitCode.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTextStream>

namespace lorvane::cli {

namespace {

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

QTextStream& err()
{
    static QTextStream stream(stderr);
    return stream;
}

QString yesNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

} // namespace

void CliOutput::printJson(const QJsonObject& object)
{
    out() << QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Indented));
    out().flush();
}

void CliOutput::printInfo(const QJsonObject& info)
{
    QTextStream& o = out();
    o << "File:    " << info.value(QStringLiteral("file")).toString() << '\n';
    if (info.contains(QStringLiteral("deviceMasterLog")))
        o << "Device Master Log: " << info.value(QStringLiteral("deviceMasterLog")).toString()
          << '\n';
    o << "Version: " << QString::number(info.value(QStringLiteral("version")).toDouble(), 'f', 2)
      << '\n';
    o << "Note:    " << info.value(QStringLiteral("note")).toString() << '\n';

    o << "\nDevice\n";
    const QJsonObject device = info.value(QStringLiteral("device")).toObject();
    for (const char* key :
         {"DeviceTypeID", "DeviceType", "HardwareName", "HardwareID", "Address", "FileName",
          "FilePath", "Status", "KGate", "FirmwareInfo3", "HasNominalVoltage"}) {
        const QJsonValue value = device.value(QLatin1String(key));
        QString text = value.isBool() ? yesNo(value.toBool()) : value.toVariant().toString();
        o << "  " << QString::fromLatin1(key).leftJustified(18) << text << '\n';
    }
    for (const QJsonValue& label : device.value(QStringLiteral("UserItemLabels")).toArray()) {
        const QJsonObject l = label.toObject();
        o << "  Item label " << l.value(QStringLiteral("Item_Index")).toInteger() << ": "
          << l.value(QStringLiteral("Label")).toString() << '\n';
    }

    o << "\nLog inventory\n";
    for (const QJsonValue& entry : info.value(QStringLiteral("logAvailable")).toArray()) {
        const QJsonObject e = entry.toObject();
        o << "  " << QString::number(e.value(QStringLiteral("index")).toInt()).rightJustified(2)
          << ' ' << e.value(QStringLiteral("name")).toString().leftJustified(18)
          << yesNo(e.value(QStringLiteral("available")).toBool()) << '\n';
    }

    if (info.contains(QStringLiteral("logFiles"))) {
        o << "\nLog files\n";
        for (const QJsonValue& entry : info.value(QStringLiteral("logFiles")).toArray()) {
            const QJsonObject e = entry.toObject();
            o << "  " << e.value(QStringLiteral("name")).toString().leftJustified(18)
              << (e.value(QStringLiteral("present")).toBool() ? "present" : "absent") << '\n';
        }
    }

    o << "\nLogs\n";
    for (const QJsonValue& entry : info.value(QStringLiteral("logs")).toArray()) {
        const QJsonObject e = entry.toObject();
        QString name = e.value(QStringLiteral("name")).toString();
        if (e.contains(QStringLiteral("file")))
            name += QStringLiteral(" (") + e.value(QStringLiteral("file")).toString() +
                    QLatin1Char(')');
        o << "  " << name.leftJustified(36) << e.value(QStringLiteral("text")).toString() << "  ("
          << e.value(QStringLiteral("records")).toInteger() << " records)\n";
    }
    o.flush();
}

void CliOutput::warn(const QString& message)
{
    err() << "warning: " << message << '\n';
    err().flush();
}

void CliOutput::error(const QString& message)
{
    err() << message << '\n';
    err().flush();
}

QString CliOutput::usageText()
{
    return QStringLiteral(
        "usage: lorvane-cli COMMAND [ARGUMENTS]\n"
        "commands:\n"
        "  info FILE [--json]   version, device, log inventory and log tree "
        "of a meter database or Device Master Log (.dml)\n"
        "  upgrade FILE [--json]   bring a meter database to schema 8.6 in "
        "place (writes the file)\n"
        "  label ID [ID ...] [--dictionary PATH] [--json]   data point labels "
        "from the dictionary\n"
        "  status FILE... [--format csv|json]   database status of each meter "
        "file\n"
        "  setup FILE [--table NAME] [--format csv|json]   settings tables of "
        "a meter file\n"
        "  query VIEW --meter FILE [--meter FILE2] [--points ID,...] "
        "(--from T --to T | --last N minutes|hours|days|weeks) [--page N | "
        "--all-pages] [--sort ITEM] [--desc] [--type NAME] [--format csv|json] "
        "[--template PATH] [--dictionary PATH]   the grids of a view "
        "(snapshots, demand, ...)\n"
        "  waveform --meter FILE --record N [--json] [--samples csv] "
        "[--template PATH]   header or samples of one waveform capture\n"
        "  power-graph --meter FILE --points ID,... --from T --to T [--demand] "
        "[--kind circular|xy] [--days N] [--start T] [--min Y] [--max Y] "
        "[--json | --out FILE.png|svg|pdf]   records or picture of a circular or XY "
        "power graph\n"
        "  en50160 list --meter FILE [--meter FILE2] --from T --to T "
        "[--format csv|json]   the EN 50160 test list\n"
        "  en50160 evaluate --meter FILE --test ID [--json]   page verdicts, "
        "voltage events and totals of one test\n"
        "  pq-histogram --meter FILE [--meter FILE2] --from T --to T [--json] "
        "[--template PATH]   PQ events, count matrix and sums\n"
        "  graphs [--json]   the graphs by log kind with the view that loads "
        "their rows\n"
        "  trend --meter FILE [--meter FILE2] --points ID,... --from T --to T "
        "[--demand] [--extents default|nonzero|intelligent] [--json] "
        "[--out FILE.csv]   the trend's sets and axis extents\n"
        "  overview --meter FILE [--analyze] [--json]   the historical "
        "overview; --analyze writes its tables into the meter file\n"
        "  relay-logic --meter FILE --gindex N [--json | --out "
        "FILE.svg|png|pdf] [--template PATH]   the relay logic tree of one "
        "relay record\n");
}

int CliOutput::usage(const QString& message)
{
    if (!message.isEmpty())
        err() << "lorvane-cli: " << message << '\n';
    err() << usageText();
    err().flush();
    return Usage;
}

} // namespace lorvane::cli
