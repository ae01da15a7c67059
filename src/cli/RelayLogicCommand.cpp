// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicCommand.h"

#include "CliOutput.h"
#include "CommandBoundary.h"
#include "ExitCode.h"
#include "GridPrinter.h"
#include "ScratchTemplate.h"
#include "WholeMeterScratch.h"
#include "graph/paint/PictureFile.h"
#include "platform/Fault.h"
#include "query/views/relay/RelayView.h"
#include "relaylogic/RelayLogicBuilder.h"
#include "relaylogic/RelayLogicGrid.h"
#include "relaylogic/RelayLogicReader.h"
#include "relaylogic/RelayLogicTexts.h"
#include "relaylogic/paint/RelayLogicPicture.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QPainter>
#include <QTextStream>

namespace lorvane::cli {

namespace {

struct Options
{
    QString meter;
    qint64 gIndex = -1;
    bool json = false;
    QString out;
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
        if (a != QLatin1String("--meter") && a != QLatin1String("--gindex") &&
            a != QLatin1String("--out") && a != QLatin1String("--template"))
            return CliOutput::usage(QStringLiteral("unknown option: ") + a);
        if (i + 1 >= arguments.size())
            return CliOutput::usage(a + QStringLiteral(" needs a value"));
        const QString value = arguments.at(++i);
        if (a == QLatin1String("--meter")) {
            o.meter = value;
        } else if (a == QLatin1String("--out")) {
            o.out = value;
        } else if (a == QLatin1String("--template")) {
            o.templatePath = value;
        } else {
            bool ok = false;
            o.gIndex = value.toLongLong(&ok);
            if (!ok || o.gIndex < 0)
                return CliOutput::usage(QStringLiteral("--gindex needs a record number"));
        }
    }
    if (o.meter.isEmpty() || o.gIndex < 0)
        return CliOutput::usage(QStringLiteral("relay-logic needs --meter FILE and --gindex N"));
    if (o.json && !o.out.isEmpty())
        return CliOutput::usage(QStringLiteral("give either --json or --out"));
    if (!o.out.isEmpty() && !PictureFile::knownSuffix(o.out))
        return CliOutput::usage(QStringLiteral("--out takes a .svg, .png or .pdf file"));
    return Success;
}

QJsonValue state(RelayNodeState s)
{
    return s == RelayNodeState::Unknown ? QJsonValue() : QJsonValue(int(s));
}

QJsonObject json(const RelayLogicTree& tree)
{
    static const char* const kinds[] = {"input", "gate", "setPath", "delay", "relay"};
    QJsonArray nodes;
    for (const RelayLogicNode& n : tree.nodes) {
        QJsonObject node{{QStringLiteral("kind"), QLatin1String(kinds[int(n.kind)])},
                         {QStringLiteral("number"), n.number},
                         {QStringLiteral("name"), RelayLogicTexts::label(n)},
                         {QStringLiteral("state"), state(n.state)},
                         {QStringLiteral("column"), n.column},
                         {QStringLiteral("row"), n.row}};
        if (n.kind == RelayLogicNode::Kind::Gate) {
            node.insert(QStringLiteral("gateType"), RelayLogicTexts::gateType(n.gate));
            node.insert(QStringLiteral("firstInverted"), n.gate.firstInverted);
            node.insert(QStringLiteral("secondInverted"), n.gate.secondInverted);
        }
        if (n.kind == RelayLogicNode::Kind::Delay)
            node.insert(QStringLiteral("seconds"), n.seconds);
        nodes.append(node);
    }
    QJsonArray edges;
    for (const RelayLogicEdge& e : tree.edges)
        edges.append(QJsonObject{{QStringLiteral("from"), e.from},
                                 {QStringLiteral("to"), e.to},
                                 {QStringLiteral("pin"), e.pin}});
    return QJsonObject{
        {QStringLiteral("title"), RelayLogicTexts::title(tree.deviceTypeId)},
        {QStringLiteral("deviceTypeId"), tree.deviceTypeId},
        {QStringLiteral("gIndex"), tree.gIndex},
        {QStringLiteral("module"), tree.moduleName},
        {QStringLiteral("relay"), tree.relayName},
        {QStringLiteral("start"), tree.start.storedText()},
        {QStringLiteral("startMs"), tree.start.ms()},
        {QStringLiteral("end"), tree.end.storedText()},
        {QStringLiteral("endMs"), tree.end.ms()},
        {QStringLiteral("finalState"), RelayLogicTexts::finalState(tree)},
        {QStringLiteral("openedAndLocked"), tree.openedAndLocked},
        {QStringLiteral("hysteresis"), tree.hysteresis},
        {QStringLiteral("logicControl"), tree.logicControl},
        {QStringLiteral("columns"), tree.columns},
        {QStringLiteral("rows"), tree.rows},
        {QStringLiteral("nodes"), nodes},
        {QStringLiteral("edges"), edges},
    };
}

void printText(const RelayLogicTree& tree)
{
    QTextStream out(stdout);
    out << RelayLogicTexts::title(tree.deviceTypeId) << " - " << tree.moduleName << ", "
        << tree.relayName << '\n'
        << RelayLogicTexts::startHeading(tree) << '\n'
        << RelayLogicTexts::endHeading(tree) << '\n'
        << RelayLogicTexts::label(tree.nodes.last()) << ": " << RelayLogicTexts::finalState(tree)
        << '\n';
    GridPrinter::print(out, {RelayLogicGrid::table(tree)}, QStringLiteral("csv"));
}

} // namespace

int RelayLogicCommand::run(const QStringList& arguments)
{
    Options o;
    if (const int code = parse(arguments, o); code != Success)
        return code;
    try {
        WholeMeterScratch whole(o.meter, o.templatePath);
        const ViewResult view = RelayView::run(whole.context());
        // The record as the relay grid lists it (a record without its setting is not listed).
        QVariantMap keys;
        for (const QVariantMap& row : view.grids.first().rowKeys)
            if (row.value(QStringLiteral("GIndex")).toLongLong() == o.gIndex)
                keys = row;
        if (keys.isEmpty())
            throw Fault(Fault::Kind::Other, RelayLogicBuilder::missingSetting(),
                        QStringLiteral("ShowRelayLogic"), QString());
        const RelayLogicTree tree =
            RelayLogicReader::read(whole.scratch().database(), view.numbers, keys);
        if (!o.out.isEmpty()) {
            const auto paint = [&tree](QPainter& painter, const QRectF& area) {
                RelayLogicPicture::paint(painter, area, tree);
            };
            if (!PictureFile::save(o.out, {1200, 700}, RelayLogicTexts::title(tree.deviceTypeId),
                                   paint)) {
                CliOutput::error(QStringLiteral("cannot write ") + o.out);
                return Failure;
            }
        } else if (o.json) {
            CliOutput::printJson(json(tree));
        } else {
            printText(tree);
        }
        return Success;
    } catch (const Fault& fault) {
        rethrowNaming(fault, o.meter);
    }
}

} // namespace lorvane::cli
