// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformCommand.h"

#include "CliOutput.h"
#include "CommandBoundary.h"
#include "ExitCode.h"
#include "FaultExitCode.h"
#include "ScratchTemplate.h"
#include "WholeMeterScratch.h"
#include "graph/GraphRegistry.h"
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "platform/StorageError.h"
#include "query/engine/QueryContext.h"
#include "query/engine/ViewRegistry.h"
#include "store/StampedTime.h"
#include "store/TempQueryDatabase.h"
#include "waveform/InterharmonicAnalysis.h"
#include "waveform/WaveformCapture.h"
#include "waveform/WaveformStatistics.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace lorvane::cli {

namespace {

struct Options
{
    QString meter;
    qint32 record = -1;
    bool json = false;
    bool samples = false;
    QString templatePath;
    /// `--stats CHANNEL --at MS`: the statistics of one cycle.
    int statsChannel = -1;
    double atMs = 0;
    /// `--interharmonic CHANNEL --start SAMPLE --system 50|60`.
    int interharmonicChannel = -1;
    int windowStart = 0;
    int systemFrequency = 60;
};

int channelOption(const QString& value, const char* option, int& channel)
{
    bool ok = false;
    channel = value.toInt(&ok);
    if (!ok || channel < 0 || channel >= WaveformChannels::channelCount)
        return CliOutput::usage(QString::fromLatin1(option) +
                                QStringLiteral(" needs a channel from 0 to 14"));
    return Success;
}

/// One option: its name, whether a value follows, and what it does with it (an ExitCode).
struct OptionRule
{
    const char* name;
    bool takesValue;
    std::function<int(const QString& value, Options& o)> apply;
};

const QList<OptionRule>& optionRules()
{
    static const QList<OptionRule> rules{
        {"--meter", true,
         [](const QString& value, Options& o) {
             o.meter = value;
             return int(Success);
         }},
        {"--record", true,
         [](const QString& value, Options& o) {
             bool ok = false;
             o.record = value.toInt(&ok);
             if (!ok || o.record < 1)
                 return CliOutput::usage(QStringLiteral("--record needs a record counter from 1"));
             return int(Success);
         }},
        {"--json", false,
         [](const QString&, Options& o) {
             o.json = true;
             return int(Success);
         }},
        {"--samples", true,
         [](const QString& value, Options& o) {
             if (value != QLatin1String("csv"))
                 return CliOutput::usage(QStringLiteral("--samples is csv"));
             o.samples = true;
             return int(Success);
         }},
        {"--template", true,
         [](const QString& value, Options& o) {
             o.templatePath = value;
             return int(Success);
         }},
        {"--stats", true,
         [](const QString& value, Options& o) {
             return channelOption(value, "--stats", o.statsChannel);
         }},
        {"--at", true,
         [](const QString& value, Options& o) {
             bool ok = false;
             o.atMs = value.toDouble(&ok);
             if (!ok || !std::isfinite(o.atMs) || o.atMs < 0)
                 return CliOutput::usage(QStringLiteral("--at needs milliseconds from 0"));
             return int(Success);
         }},
        {"--interharmonic", true,
         [](const QString& value, Options& o) {
             return channelOption(value, "--interharmonic", o.interharmonicChannel);
         }},
        {"--start", true,
         [](const QString& value, Options& o) {
             bool ok = false;
             o.windowStart = value.toInt(&ok);
             if (!ok || o.windowStart < 0)
                 return CliOutput::usage(QStringLiteral("--start needs a sample number from 0"));
             return int(Success);
         }},
        {"--system", true,
         [](const QString& value, Options& o) {
             o.systemFrequency = value.toInt();
             if (o.systemFrequency != 50 && o.systemFrequency != 60)
                 return CliOutput::usage(QStringLiteral("--system is 50 or 60"));
             return int(Success);
         }},
    };
    return rules;
}

int parse(const QStringList& arguments, Options& o)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& a = arguments.at(i);
        const auto rule =
            std::find_if(optionRules().begin(), optionRules().end(),
                         [&](const OptionRule& r) { return a == QLatin1String(r.name); });
        if (rule == optionRules().end())
            return CliOutput::usage(QStringLiteral("unknown option: ") + a);
        QString value;
        if (rule->takesValue) {
            if (i + 1 >= arguments.size())
                return CliOutput::usage(a + QStringLiteral(" needs a value"));
            value = arguments.at(++i);
        }
        if (const int code = rule->apply(value, o); code != Success)
            return code;
    }
    if (o.meter.isEmpty() || o.record < 1)
        return CliOutput::usage(QStringLiteral("waveform needs --meter FILE and --record N"));
    if (o.json && o.samples)
        return CliOutput::usage(QStringLiteral("give either --json or --samples csv"));
    if (int(o.samples) + int(o.statsChannel >= 0) + int(o.interharmonicChannel >= 0) > 1)
        return CliOutput::usage(
            QStringLiteral("give one of --samples, --stats and --interharmonic"));
    return Success;
}

QString stamp(const QDateTime& clock, double ms)
{
    return StampedTime(clock, ms, 0)
        .text(QStringLiteral("yyyy-MM-dd HH:mm:ss"), QLocale::c(),
              StampedTime::Fraction::TenthMilliseconds);
}

template <typename Array> QJsonArray list(const Array& values)
{
    QJsonArray out;
    for (const auto& value : values)
        out.append(value);
    return out;
}

QJsonObject header(const WaveformCapture& capture)
{
    const WaveformRecord& r = capture.record();
    QJsonObject o{
        {QStringLiteral("recCounter"), r.recCounter},
        {QStringLiteral("deviceIndex"), r.deviceIndex},
        {QStringLiteral("logIndex"), r.logIndex},
        {QStringLiteral("deviceTypeId"), r.deviceTypeId},
        {QStringLiteral("hardwareName"), r.hardwareName},
        {QStringLiteral("triggerTime"), stamp(r.triggerTime, r.triggerMs)},
        {QStringLiteral("wtTime"), stamp(r.wtTime, r.wtMs)},
        {QStringLiteral("waveStart"), r.waveStartText},
        {QStringLiteral("waveEnd"), r.waveEndText},
        {QStringLiteral("duration"), r.durationText},
        {QStringLiteral("triggeredBy"), r.triggeredBy},
        {QStringLiteral("waveformNumber"), r.waveformNumber},
        {QStringLiteral("waveformTriggerNumber"), r.waveformTriggerNumber},
        {QStringLiteral("contiguous"), r.contiguous},
        {QStringLiteral("captureSequence"), r.captureSequence},
        {QStringLiteral("sampleRate"), r.sampleRate},
        {QStringLiteral("sampleCount"), r.sampleCount},
        {QStringLiteral("pointsInCycle"), r.pointsInCycle},
        {QStringLiteral("timingPT"), r.timingPT},
        {QStringLiteral("endTriggerCycPT"), r.endTriggerCycPT},
        {QStringLiteral("mode"), r.mode},
        {QStringLiteral("captureNum"), r.captureNum},
        {QStringLiteral("recordFormat"), r.recordFormat},
        {QStringLiteral("hookUp"), r.hookUp},
        {QStringLiteral("systemFrequency"), r.systemFrequency},
        {QStringLiteral("rmsValues"), list(r.rmsValues)},
        {QStringLiteral("fullScale"), list(r.fullScale)},
        {QStringLiteral("ptCtRatio"), list(r.ptCtRatio)},
        {QStringLiteral("hasNext1"), r.hasNext1},
        {QStringLiteral("nextRecCounter1"), r.nextRecCounter1},
        {QStringLiteral("hasNext2"), r.hasNext2},
        {QStringLiteral("nextRecCounter2"), r.nextRecCounter2},
        {QStringLiteral("inputLabels"), list(r.inputLabels)},
        {QStringLiteral("channelLabels"), list(capture.channels().labels)},
        {QStringLiteral("recorded"), list(capture.channels().recorded)},
    };
    if (!r.csvPath.isEmpty())
        o.insert(QStringLiteral("csvPath"), r.csvPath);
    return o;
}

void printText(const QJsonObject& object)
{
    QTextStream out(stdout);
    for (auto it = object.begin(); it != object.end(); ++it) {
        QString value;
        if (it.value().isArray()) {
            QStringList cells;
            for (const QJsonValue& cell : it.value().toArray())
                cells << cell.toVariant().toString();
            value = cells.join(QStringLiteral(", "));
        } else {
            value = it.value().toVariant().toString();
        }
        out << it.key() << ": " << value << '\n';
    }
}

QString csvCell(const QString& text)
{
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')))
        return text;
    return QLatin1Char('"') + QString(text).replace(QStringLiteral("\""), QStringLiteral("\"\"")) +
           QLatin1Char('"');
}

void printSamples(const WaveformChannels& channels)
{
    QTextStream out(stdout);
    QStringList heading{QStringLiteral("Time ms")};
    for (const QString& label : channels.labels)
        heading << csvCell(label);
    out << heading.join(QLatin1Char(',')) << '\n';
    for (int i = 0; i < channels.sampleCount(); ++i) {
        out << QString::number(double(channels.time.at(i)), 'g', 7);
        for (const QVector<float>& channel : channels.samples)
            out << ',' << QString::number(double(channel.at(i)), 'g', 7);
        out << '\n';
    }
}

/// A value that may be missing: a JSON number, or null where the window shows "N/A".
QJsonValue number(bool valid, double value)
{
    return valid ? QJsonValue(value) : QJsonValue(QJsonValue::Null);
}

int printStatistics(const WaveformCapture& capture, const Options& o)
{
    const WaveformStatistics statistics(capture.record(), capture.channels());
    const WaveformStatistics::ChannelStatistics values =
        statistics.computeChannelStatistics(o.statsChannel, o.atMs);
    const WaveformStatistics::Harmonics& h = values.harmonics;
    const QVector<float>& percent = values.harmonics.percent;
    if (o.json) {
        QJsonArray harmonics;
        for (float p : percent)
            harmonics.append(double(p));
        CliOutput::printJson(QJsonObject{
            {QStringLiteral("channel"), o.statsChannel},
            {QStringLiteral("cursor"), values.window.cursor},
            {QStringLiteral("start"), values.window.start},
            {QStringLiteral("end"), values.window.end},
            {QStringLiteral("cursorMs"),
             double(capture.channels().time.value(values.window.cursor))},
            {QStringLiteral("rms"), number(values.rmsValid, double(values.rms))},
            {QStringLiteral("peak"), number(values.peakValid, double(values.peak))},
            {QStringLiteral("crest"), number(values.crestValid, values.crest)},
            {QStringLiteral("thd"), number(h.valid, h.thd)},
            {QStringLiteral("kFactor"), number(h.valid && h.kFactorValid, h.kFactor)},
            {QStringLiteral("harmonics"), harmonics},
        });
        return Success;
    }
    QTextStream out(stdout);
    out << WaveformStatistics::annotationText(values) << '\n';
    for (int m = 0; m < percent.size(); ++m)
        out << WaveformStatistics::hotSpotText(m, double(percent[m])) << '\n';
    return Success;
}

int printInterharmonic(WaveformCapture& capture, const Options& o)
{
    const InterharmonicAnalysis analysis(o.systemFrequency);
    capture.record().windowStart = o.windowStart;
    const InterharmonicAnalysis::Result result =
        analysis.run(capture.record(), capture.channels(), o.interharmonicChannel,
                     [&capture](int direction, int loadChannel, WaveformChannels& rows) {
                         return capture.loadAdjacent(direction, loadChannel, rows);
                     });
    if (!result.ok) {
        CliOutput::error(result.message);
        return Failure;
    }
    const GraphSeries& groups = result.groups;
    if (o.json) {
        QJsonArray groupList;
        for (int k = 0; k < groups.y.size(); ++k)
            groupList.append(QJsonObject{{QStringLiteral("label"), groups.labels.at(k)},
                                         {QStringLiteral("percent"), groups.y.at(k)}});
        QJsonArray spectrum;
        for (float p : result.ampPct)
            spectrum.append(double(p));
        CliOutput::printJson(QJsonObject{
            {QStringLiteral("frequency"), result.frequency},
            {QStringLiteral("windowStart"), result.windowStart},
            {QStringLiteral("windowLength"), int(result.samples.size())},
            {QStringLiteral("groups"), groupList},
            {QStringLiteral("spectrum"), spectrum},
        });
        return Success;
    }
    QTextStream out(stdout);
    out << result.groups.title << '\n';
    for (int k = 0; k < groups.y.size(); ++k)
        out << groups.labels.at(k) << ": " << QString::number(groups.y.at(k), 'f', 4) << '\n';
    out << result.spectrum.title << '\n';
    for (int m = 0; m < result.ampPct.size(); ++m)
        out << m * 5 << " Hz: " << QString::number(double(result.ampPct[m]), 'f', 4) << '\n';
    return Success;
}

int exitCodeFor(WaveformCapture::Failure failure)
{
    switch (failure) {
    case WaveformCapture::Failure::FileMissing:
        return FileMissing;
    case WaveformCapture::Failure::FileDamaged:
        return Damaged;
    default:
        return Failure;
    }
}

} // namespace

int WaveformCommand::run(const QStringList& arguments)
{
    Options o;
    if (const int code = parse(arguments, o); code != Success)
        return code;
    try {
        WholeMeterScratch whole(o.meter, o.templatePath);
        SilentProgress progress;
        auto& scratch = whole.scratch();
        // The rows come from the view of the graph's kind, as &Graph of the log grid has them.
        const GraphDefinition* graph = GraphRegistry::instance().find(QStringLiteral("waveform"));
        const ViewDefinition* rows = graph ? GraphRegistry::rowsView(*graph) : nullptr;
        if (!rows) {
            CliOutput::error(QStringLiteral("no view loads the rows of the waveform graph"));
            return Failure;
        }
        const ViewResult view = rows->run(whole.context(), {}).first();

        WaveformCapture capture;
        const bool opened = capture.open(scratch.database(), view.numbers, o.record, &progress);
        if (!opened) {
            CliOutput::error(capture.message());
            return exitCodeFor(capture.failure());
        }
        int code = Success;
        if (o.statsChannel >= 0)
            code = printStatistics(capture, o);
        else if (o.interharmonicChannel >= 0)
            code = printInterharmonic(capture, o);
        else if (o.samples)
            printSamples(capture.channels());
        else if (o.json)
            CliOutput::printJson(header(capture));
        else
            printText(header(capture));
        return code;
    } catch (const Fault& fault) {
        rethrowNaming(fault, o.meter);
    }
}

} // namespace lorvane::cli
