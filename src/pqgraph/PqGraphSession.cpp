// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqGraphSession.h"

#include "BoundaryLineFile.h"
#include "PqGraphTexts.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/engine/EventCellText.h"

namespace lorvane {

namespace {

/// What the graph receives for a magnitude of exactly 0.
constexpr double zeroNudge = 0.0000001;

} // namespace

PqGraphSession::PqGraphSession()
{
    recount();
}

PqGraphSession::~PqGraphSession() = default;

void PqGraphSession::load(SqliteDatabase& scratch, const QueryNumbers& numbers,
                          LoadProgress* progress)
{
    PqChannelEvents events = PqEvents::ReadSequenceOfEvents(
        scratch, numbers.sliceTable(QStringLiteral("PQLog_")), progress);
    // A split-log meter lists one file per log under one name: each meter once.
    QStringList names;
    SqlStatement devices = scratch.prepare(
        QStringLiteral("SELECT HardwareName FROM %1 ORDER BY DeviceIndex")
            .arg(SqlIdentifier::quote(numbers.table(QStringLiteral("LogDevices_")))));
    while (devices.next()) {
        if (!names.contains(devices.text(0)))
            names << devices.text(0);
    }
    m_cells = std::make_unique<EventCellText>(scratch, numbers, QString());
    m_db = &scratch;
    m_numbers = numbers;
    m_events = std::move(events);
    m_deviceNames = names;
    recount();
}

void PqGraphSession::setEvents(PqChannelEvents events, QStringList deviceNames)
{
    m_events = std::move(events);
    m_deviceNames = std::move(deviceNames);
    m_cells.reset();
    m_db = nullptr;
    recount();
}

void PqGraphSession::recount()
{
    m_counts = PqCounts::matrix(m_events);
    m_sums = PqCounts::BuildCounts(m_counts);
}

QString PqGraphSession::chooseEnvelope(bool useCbema, const QString& path)
{
    if (useCbema) {
        m_envelope = PqEnvelope::cbema();
        return {};
    }
    const BoundaryLineFile::Result read = BoundaryLineFile::ReadBoundaryLines(path);
    if (!read.ok()) {
        m_envelope = PqEnvelope::cbema();
        return PqGraphTexts::fallback(PqGraphTexts::readFailure(read, path));
    }
    m_envelope = read.envelope();
    return {};
}

QList<QPointF> PqGraphSession::graphPoints(int channel) const
{
    const QList<PqEvent>& events = m_events.at(channel);
    if (events.isEmpty())
        return {QPointF(0, zeroNudge)};
    QList<QPointF> points;
    points.reserve(events.size());
    for (const PqEvent& event : events) {
        const double y = event.magnitudePercent == 0 ? zeroNudge : event.magnitudePercent;
        points.append({event.durationSeconds, y});
    }
    return points;
}

std::optional<qint64> PqGraphSession::captureOf(const PqEvent& event) const
{
    if (!m_db || !m_cells)
        return std::nullopt;
    const QString waves =
        SqlIdentifier::quote(m_numbers.sliceTable(QStringLiteral("WaveformLog_")));
    if (!m_db->tableExists(m_numbers.sliceTable(QStringLiteral("WaveformLog_"))))
        return std::nullopt;
    // A split-log meter keeps its captures in another file than its PQ records.
    QStringList devices;
    for (const qint64 device : m_cells->sameMeter(event.deviceIndex))
        devices << QString::number(device);
    const QVariant found = m_db->scalar(
        QStringLiteral("SELECT [RecCounter] FROM %1 WHERE [WTDate/Time] = ? AND "
                       "abs([WTms] - ?) < 0.05 AND [DeviceIndex] IN (%2) ORDER BY rowid")
            .arg(waves, devices.join(QLatin1Char(','))),
        {event.start, event.startMs});
    if (!found.isValid() || found.isNull())
        return std::nullopt;
    return found.toLongLong();
}

std::array<PqGraphSession::Violations, PqEvents::channelCount> PqGraphSession::violations() const
{
    std::array<Violations, PqEvents::channelCount> out{};
    for (int c = 0; c < PqEvents::channelCount; ++c) {
        for (const PqEvent& event : m_events.at(c)) {
            const EnvelopePlacement placement =
                m_envelope.placement(event.durationSeconds, event.magnitudePercent);
            if (placement == EnvelopePlacement::Above)
                ++out[c].above;
            else if (placement == EnvelopePlacement::Below)
                ++out[c].below;
        }
    }
    return out;
}

QString PqGraphSession::eventText(int channel, const PqEvent& event) const
{
    const QString start = m_cells ? m_cells->stamp(event.start, event.startMs,
                                                   StampedTime::Fraction::TenthMilliseconds)
                                  : event.start;
    QString text = QString::fromLatin1(PqEvents::channels().at(channel).name);
    if (m_cells && m_deviceNames.size() > 1)
        text += QStringLiteral(" (") + m_cells->deviceName(event.deviceIndex) + QLatin1Char(')');
    return text + QStringLiteral(", ") + start + QStringLiteral(", ") +
           QString::number(event.durationSeconds * 1000.0, 'g', 6) + QStringLiteral(" ms, ") +
           QString::number(event.magnitudePercent, 'f', 1) + QStringLiteral(" %, ") +
           PqGraphTexts::placement(
               m_envelope.placement(event.durationSeconds, event.magnitudePercent));
}

QString PqGraphSession::summaryText() const
{
    const auto counts = violations();
    QStringList parts;
    for (int c = 0; c < PqEvents::channelCount; ++c) {
        if (m_events.at(c).isEmpty())
            continue;
        parts << QStringLiteral("%1 %2 (%3 %4, %5 %6)")
                     .arg(QString::fromLatin1(PqEvents::channels().at(c).name))
                     .arg(counts[c].above + counts[c].below)
                     .arg(counts[c].above)
                     .arg(userText("601026", "above"))
                     .arg(counts[c].below)
                     .arg(userText("601027", "below"));
    }
    if (parts.isEmpty())
        return userText("601028", "No events.");
    return userText("601029", "Outside the envelope:") + QLatin1Char(' ') +
           parts.join(QStringLiteral("; "));
}

QString PqGraphSession::deviceListText() const
{
    return PqGraphTexts::deviceList(m_deviceNames);
}

} // namespace lorvane
