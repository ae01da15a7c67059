// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphSession.h"

#include "CsvCaptureFile.h"
#include "WaveGraphTexts.h"
#include "platform/LoadProgress.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"
#include "store/StampedTime.h"

#include <QLocale>
#include <algorithm>
#include <cmath>

namespace lorvane {

namespace {

WaveMarks::Annotation atSample(const WaveformChannels& channels, int sample, const QString& coded)
{
    return WaveMarks::decode(channels.time.at(sample), coded);
}

bool inside(const WaveformChannels& channels, int sample)
{
    return sample >= 0 && sample < channels.sampleCount();
}

} // namespace

WaveGraphSession::WaveGraphSession(SqliteDatabase& scratch, const WaveDisplaySettings& settings)
    : m_scratch(scratch), m_settings(settings), m_interharmonic(settings.interHarmonicFreq)
{
}

WaveGraphSession::Request WaveGraphSession::requestOpen(const QueryNumbers& numbers,
                                                        const QList<qint32>& series, int position,
                                                        const QString& rangeText)
{
    m_numbers = numbers;
    m_series = series;
    m_rangeText = rangeText;
    m_position = -1;
    if (position < 0 || position >= series.size()) {
        m_capture = WaveformCapture();
        return {std::nullopt, {false, userText("503420", "There is no waveform to show."), true}};
    }
    return {readAt(position), {}};
}

WaveGraphSession::Request WaveGraphSession::requestStep(int delta) const
{
    const int target = m_position + delta;
    if (target < 0)
        return {
            std::nullopt,
            {false, userText("503424", "This is the first waveform in this series") + u'.', false}};
    if (target >= m_series.size())
        return {
            std::nullopt,
            {false, userText("503425", "This is the last waveform in this series") + u'.', false}};
    CaptureRead read = readAt(target);
    read.keepOnFailure = m_position >= 0;
    return {read, {}};
}

WaveGraphSession::CaptureRead WaveGraphSession::readAt(int position) const
{
    return {m_numbers, m_series.at(position), position, m_settings.talmoFreq, false};
}

WaveformCapture WaveGraphSession::CaptureRead::run(SqliteDatabase& scratch,
                                                   LoadProgress* progress) const
{
    WaveformCapture capture;
    capture.setTalmoFrequency(talmoFrequency);
    capture.open(scratch, numbers, recCounter, progress);
    return capture;
}

WaveGraphSession::Outcome WaveGraphSession::take(const CaptureRead& read, WaveformCapture capture)
{
    if (!capture.isOpen()) {
        if (!read.keepOnFailure) {
            m_capture = WaveformCapture();
            m_position = -1;
        }
        return {false, capture.message(), true};
    }
    m_capture = std::move(capture);
    m_capture.useDatabase(m_scratch);
    m_position = read.position;
    m_marks.clear();
    m_cursor.reset();
    m_statistics.reset();
    m_interharmonicFrequency = 0;
    const QVector<float>& time = m_capture.channels().time;
    m_zoom.reset(time.size() < 2 ? Range{} : Range{time.first(), time.last()});
    m_capture.record().windowStart = 0;
    m_focus = std::clamp(m_focus, 0, WaveformChannels::analogCount - 1);
    return {};
}

WaveGraphSession::Outcome WaveGraphSession::load(const Request& request, LoadProgress* progress)
{
    if (!request.read)
        return request.refusal;
    return take(*request.read, request.read->run(m_scratch, progress));
}

WaveGraphSession::Outcome WaveGraphSession::open(const QueryNumbers& numbers,
                                                 const QList<qint32>& series, int position,
                                                 const QString& rangeText, LoadProgress* progress)
{
    return load(requestOpen(numbers, series, position, rangeText), progress);
}

WaveGraphSession::Outcome WaveGraphSession::step(int delta, LoadProgress* progress)
{
    return load(requestStep(delta), progress);
}

QString WaveGraphSession::caption() const
{
    if (!isOpen())
        return {};
    const WaveformRecord& r = m_capture.record();
    QString text =
        (r.transient ? userText("503421", "Transient") : userText("503422", "Waveform")) +
        QStringLiteral(" #") + QString::number(r.waveformNumber) + QStringLiteral(": ");
    if (const std::optional<WavePqEvent>& pq = m_capture.pqEvent())
        text += userText("503481", "PQ") + u' ' + pq->condition + u' ' + pq->channel +
                QStringLiteral(". ");
    text += StampedTime(r.wtTime, r.wtMs, 0)
                .text(QStringLiteral("yyyy-MM-dd HH:mm:ss"), QLocale::c(),
                      StampedTime::Fraction::TenthMilliseconds);
    if (!m_rangeText.isEmpty())
        text += QStringLiteral(" (") + m_rangeText + u')';
    return text + QStringLiteral(", ") + QString::number(m_series.size()) + QStringLiteral(" - ") +
           (r.transient ? userText("403060", "Transients") : userText("403061", "Waveforms"));
}

QString WaveGraphSession::windowTitle() const
{
    return m_capture.record().hardwareName + QStringLiteral(" - ") + caption();
}

void WaveGraphSession::setSettings(const WaveDisplaySettings& settings)
{
    const bool newAxis = settings.talmoFreq != m_settings.talmoFreq && isOpen() &&
                         m_capture.record().deviceTypeId == 0;
    m_settings = settings;
    if (newAxis)
        load({readAt(m_position), {}}, nullptr);
}

void WaveGraphSession::click(int channel, double ms)
{
    if (!isOpen())
        return;
    m_focus = channel;
    const WaveformStatistics statistics(m_capture.record(), m_capture.channels());
    m_statistics = statistics.computeChannelStatistics(channel, ms);
    m_cursor = m_capture.channels().time.value(m_statistics->window.cursor, float(ms));
}

const WaveformStatistics::ChannelStatistics& WaveGraphSession::statistics() const
{
    static const WaveformStatistics::ChannelStatistics none = [] {
        WaveformStatistics::ChannelStatistics s;
        s.rmsText = s.peakText = s.crestText = s.thdText = s.kFactorText =
            userText("502001", "N/A");
        return s;
    }();
    return m_statistics ? *m_statistics : none;
}

QString WaveGraphSession::statisticsText() const
{
    return m_statistics ? WaveformStatistics::annotationText(*m_statistics) : QString();
}

QList<WaveGraphSession::Strip> WaveGraphSession::strips() const
{
    const WaveformChannels& ch = m_capture.channels();
    const int frequency = displayFrequency();
    QList<Strip> result;
    QList<int> inputs;
    for (int c = WaveformChannels::Input1; c < WaveformChannels::channelCount; ++c)
        inputs << c;
    if (m_settings.displayMode == WaveDisplaySettings::DisplayMode::Classic) {
        for (int c = 0; c < WaveformChannels::analogCount; ++c)
            result.append({{c}, ch.labels.at(c), WaveGraphTexts::axisTitle(c, frequency)});
        const QString title = WaveGraphTexts::axisTitle(WaveformChannels::Input1, frequency);
        result.append({inputs, title, QString()});
        return result;
    }
    QList<int> volts;
    QList<int> amps;
    QList<int> lanes;
    for (int c = 0; c < WaveformChannels::channelCount; ++c) {
        if (!m_settings.overlayItems.at(c))
            continue;
        (c < WaveformChannels::Ia ? volts : c < WaveformChannels::Input1 ? amps : lanes) << c;
    }
    if (m_settings.displayMode == WaveDisplaySettings::DisplayMode::Overlay) {
        result.append({volts + amps + lanes, userText("503426", "Overlay graph"), QString()});
        return result;
    }
    for (const auto& [group, channel] :
         {std::pair{volts, 0}, std::pair{amps, 3}, std::pair{lanes, 7}}) {
        if (!group.isEmpty()) {
            const QString title = WaveGraphTexts::axisTitle(channel, frequency);
            result.append({group, title, title});
        }
    }
    return result;
}

bool WaveGraphSession::stripShown(const Strip& strip) const
{
    if (strip.channels.isEmpty())
        return false;
    const bool classic = m_settings.displayMode == WaveDisplaySettings::DisplayMode::Classic;
    if (m_detailsOn && classic)
        return strip.channels.contains(m_focus);
    if (strip.channels == QList<int>{WaveformChannels::In})
        return m_neutralOn;
    if (strip.channels.first() >= WaveformChannels::Input1)
        return m_inputsOn;
    return true;
}

QList<WaveMarks::Annotation> WaveGraphSession::annotations(const Strip& strip) const
{
    const WaveformRecord& r = m_capture.record();
    const WaveformChannels& ch = m_capture.channels();
    QList<WaveMarks::Annotation> list = m_marks.annotations();
    if (inside(ch, r.timingPT))
        list << atSample(ch, r.timingPT, WaveGraphTexts::triggerText(r));
    if (const std::optional<WavePqEvent>& pq = m_capture.pqEvent()) {
        if (inside(ch, pq->startSample))
            list << atSample(ch, pq->startSample, WaveGraphTexts::pqStartText());
        if (inside(ch, pq->endSample))
            list << atSample(ch, pq->endSample, WaveGraphTexts::pqEndText());
    }
    if (r.windowStart > 0 && inside(ch, r.windowStart))
        list << atSample(ch, r.windowStart, WaveGraphTexts::interharmonicStartText());
    if (m_notePosition && !m_note.isEmpty())
        list << WaveMarks::decode(*m_notePosition, QStringLiteral("|l") + m_note);
    if (!strip.channels.contains(m_focus))
        return list;
    if (m_cursor)
        list << WaveMarks::Annotation{*m_cursor, u'H', userText("503433", "Cursor")};
    // The transient detector reports the peaks of the three voltages.
    const CsvCaptureFile* csv = m_capture.csvFile();
    if (csv && csv->transient() && !csv->transientBlocks().isEmpty() && m_focus < 3) {
        const CsvCaptureFile::TransientBlock& block = csv->transientBlocks().first();
        const QVector<float>& values = ch.samples.at(m_focus);
        for (const bool positive : {true, false}) {
            const int at = (positive ? block.maxPosIndex : block.maxNegIndex).at(m_focus);
            const int count = (positive ? block.maxPosDuration : block.maxNegDuration).at(m_focus);
            if (inside(ch, at))
                list << atSample(ch, at,
                                 WaveGraphTexts::transientText(positive, values.at(at), count));
        }
    }
    return list;
}

void WaveGraphSession::clearNote()
{
    m_note.clear();
    m_notePosition.reset();
}

InterharmonicAnalysis::Preparation WaveGraphSession::placeInterharmonicMark(double ms)
{
    return InterharmonicAnalysis::placeMark(m_capture.record(), ms);
}

void WaveGraphSession::resetInterharmonicMark()
{
    m_capture.record().windowStart = 0;
}

InterharmonicAnalysis::Result WaveGraphSession::runInterharmonic(LoadProgress* progress)
{
    const WaveformCapture& capture = m_capture;
    InterharmonicAnalysis::Result result;
    try {
        result = m_interharmonic.run(
            m_capture.record(), m_capture.channels(), m_focus,
            [&capture, progress](int direction, int loadChannel, WaveformChannels& rows) {
                if (progress)
                    progress->status(userText("505016", "Reading the following capture"));
                return capture.loadAdjacent(direction, loadChannel, rows);
            },
            HarmonicSpectrum::Method::Fast, progress);
    } catch (const StorageError& error) {
        // A following row that cannot be read ends the analysis with the engine's words.
        result = {};
        result.message = QString::fromUtf8(error.what());
    }
    if (result.ok)
        m_interharmonicFrequency = result.frequency;
    return result;
}

int WaveGraphSession::displayFrequency() const
{
    return m_interharmonicFrequency > 0 ? m_interharmonicFrequency
                                        : m_capture.record().systemFrequency;
}

QList<std::pair<QString, double>> WaveGraphSession::captureRms() const
{
    const WaveformChannels& ch = m_capture.channels();
    QList<std::pair<QString, double>> result;
    for (int c = 0; c < WaveformChannels::analogCount; ++c) {
        const QVector<float>& values = ch.samples.at(c);
        if (!ch.recorded.at(c) || values.isEmpty())
            continue;
        double sum = 0;
        for (const float v : values)
            sum += double(v) * v;
        result.append({ch.labels.at(c), std::sqrt(sum / double(values.size()))});
    }
    return result;
}

QList<WaveGraphSession::CompositionCurve>
WaveGraphSession::compositionCurves(QStringList& failures, LoadProgress* progress) const
{
    QList<CompositionCurve> curves;
    const QList<WaveCompositionItem>& items = m_composition.items();
    for (qsizetype k = 0; k < items.size(); ++k) {
        const WaveCompositionItem& item = items.at(k);
        if (progress)
            progress->advance(k, items.size());
        CompositionCurve curve;
        curve.legend = WaveCompositionList::legend(item);
        curve.channel = item.itemIndex;
        WaveformCapture capture;
        capture.setTalmoFrequency(m_settings.talmoFreq);
        std::optional<ProgressShare> share;
        if (progress)
            share.emplace(*progress, double(k) / double(items.size()),
                          double(k + 1) / double(items.size()));
        if (!capture.open(m_scratch, m_numbers, item.groupIndex, share ? &*share : nullptr)) {
            failures << capture.message();
            curves << curve;
            continue;
        }
        const WaveformRecord& r = capture.record();
        const QVector<float>& time = capture.channels().time;
        const QVector<float>& values = capture.channels().samples.at(item.itemIndex);
        for (int i = 0; i < values.size() && i < time.size(); ++i) {
            if (item.section && item.start >= 0 &&
                (time.at(i) < item.start || time.at(i) > item.end))
                continue;
            curve.values << values.at(i);
        }
        curve.time = WaveCompositionList::timeAxis(r.systemFrequency, r.sampleRate,
                                                   int(curve.values.size()));
        curves << curve;
    }
    if (progress)
        progress->advance(items.size(), items.size());
    return curves;
}

QList<WaveCompositionItem> WaveGraphSession::compositionCandidates() const
{
    QList<WaveCompositionItem> items;
    const auto addCapture = [&items](const WaveformCapture& capture, int input) {
        const WaveformRecord& r = capture.record();
        const QVector<float>& time = capture.channels().time;
        for (int c = 0; c < WaveformChannels::analogCount; ++c) {
            if (!capture.channels().recorded.at(c))
                continue;
            WaveCompositionItem item;
            item.input = input;
            item.groupIndex = r.recCounter;
            item.itemIndex = c;
            item.dateTime = r.triggerTime;
            item.ms = r.triggerMs;
            item.device = r.hardwareName;
            item.item = capture.channels().labels.at(c);
            item.durationMs = time.isEmpty() ? 0 : time.last() - time.first();
            items << item;
        }
    };
    if (!isOpen())
        return items;
    addCapture(m_capture, m_position);
    // The neighbours in the grid's series are the captures a user compares most.
    for (const int neighbour : {m_position - 1, m_position + 1}) {
        if (neighbour < 0 || neighbour >= m_series.size())
            continue;
        WaveformCapture other;
        other.setTalmoFrequency(m_settings.talmoFreq);
        if (other.open(m_scratch, m_numbers, m_series.at(neighbour)))
            addCapture(other, neighbour);
    }
    return items;
}

} // namespace lorvane
