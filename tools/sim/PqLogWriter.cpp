// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqLogWriter.h"

#include "CaptureDayTables.h"
#include "CapturePlan.h"
#include "SimMeter.h"

#include <algorithm>
#include <cmath>

namespace lorvane::sim {

namespace {

const char* const phaseNames[] = {"Van", "Vbn", "Vcn"};

struct PqEvent
{
    Disturbance disturbance;
    const PlannedCapture* capture = nullptr; ///< nullptr for the row with the missing capture
};

/// The dip of the broken link: half way through the period, clear of every capture, on Vcn.
Disturbance orphanDip(const SimMeter& meter, const CapturePlan& plan)
{
    Disturbance d;
    d.kind = Disturbance::Kind::Sag;
    d.channel = 2;
    d.startSecond = meter.startSecond + (meter.endSecond - meter.startSecond) / 2 + 7;
    d.startMs = 250.0;
    d.durationMs = 50.0;
    d.residualPercent = 88.0;
    auto nearCapture = [&](qint64 s) {
        return std::any_of(plan.captures().cbegin(), plan.captures().cend(),
                           [s](const auto& c) { return std::abs(c.trigger.second - s) < 10; });
    };
    while (nearCapture(d.startSecond))
        d.startSecond += 30;
    return d;
}

} // namespace

void PqLogWriter::write(const SimMeter& meter)
{
    const CapturePlan plan(meter);
    const double fullScale = meter.model->config().nominalVoltage;
    const double frequency = meter.model->config().frequency;

    QList<PqEvent> events;
    const QList<Disturbance>& disturbances = meter.model->disturbances();
    for (int i = 0; i < disturbances.size(); ++i)
        events << PqEvent{disturbances.at(i), plan.forDisturbance(i)};
    events << PqEvent{orphanDip(meter, plan), nullptr};
    std::stable_sort(events.begin(), events.end(), [](const PqEvent& a, const PqEvent& b) {
        const CaptureStamp sa{a.disturbance.startSecond, a.disturbance.startMs};
        return sa.msSince({b.disturbance.startSecond, b.disturbance.startMs}) < 0.0;
    });

    CaptureDayTables days(meter, LogKind::PowerQuality);
    qint64 recCounter = 0;
    for (const PqEvent& event : events) {
        const Disturbance& d = event.disturbance;
        const CaptureStamp start{d.startSecond, d.startMs};
        const CaptureStamp end = start.plus(d.durationMs);
        const bool transient = d.kind == Disturbance::Kind::Transient;
        const double volts =
            transient ? d.transientPeakVolts : fullScale * d.residualPercent / 100.0;
        const char* condition = transient                            ? "TRANSIENT"
                                : d.kind == Disturbance::Kind::Swell ? "SURGE"
                                                                     : "SAG";

        int first = CapturePlan::missingWaveformNumber;
        int last = CapturePlan::missingWaveformNumber;
        int setting = 1;
        int startSample = 0;
        int endSample = 0;
        if (event.capture) {
            const PlannedCapture& c = *event.capture;
            first = c.firstWaveformNumber;
            last = c.lastWaveformNumber();
            setting = c.setting.index;
            startSample = c.triggerSample;
            // The event's end sample, or the last sample when it outlasts the capture.
            const int samples = static_cast<int>(
                std::ceil(d.durationMs / 1000.0 * frequency * c.setting.sampleRate));
            endSample = std::min(c.sampleCount() - 1, startSample + samples);
        }

        QVariantMap row{
            {QStringLiteral("StartDate/Time"), start.text()},
            {QStringLiteral("Startms"), days.msValue(start.ms)},
            {QStringLiteral("SDTmode"), 0},
            {QStringLiteral("EndDate/Time"), end.text()},
            {QStringLiteral("Endms"), days.msValue(end.ms)},
            {QStringLiteral("EDTmode"), 0},
            {QStringLiteral("Duration"), d.durationMs},
            {QStringLiteral("ConditionName"), QString::fromLatin1(condition)},
            {QStringLiteral("ChannelName"), QString::fromLatin1(phaseNames[d.channel])},
            {QStringLiteral("ChannelID"), d.channel},
            {QStringLiteral("PQValue"), volts},
            {QStringLiteral("PQ%"), 100.0 * volts / fullScale},
            {QStringLiteral("WaveformLink"), -1},
            {QStringLiteral("ConditionCode"), static_cast<int>(d.kind)},
            {QStringLiteral("SWNumber"), first},
            {QStringLiteral("EWNumber"), last},
            {QStringLiteral("SSample"), startSample},
            {QStringLiteral("ESample"), endSample},
            {QStringLiteral("Index"), setting},
            {QStringLiteral("RecCounter"), ++recCounter},
        };
        days.add(row, start, end);
    }
    days.write();
}

} // namespace lorvane::sim
