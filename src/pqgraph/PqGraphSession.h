// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PqCounts.h"
#include "PqEnvelope.h"
#include "PqEvents.h"
#include "query/engine/QueryCatalog.h"

#include <QPointF>
#include <QStringList>
#include <array>
#include <memory>
#include <optional>

namespace lorvane {

class EventCellText;
class LoadProgress;
class SqliteDatabase;

/// The state of the power quality graph window without a screen: the events of the query's
/// PQ table by voltage channel, their count matrix and sums, the envelope chosen at each draw
/// and where each event lies against it. The window and `lorvane-cli pq-histogram` read
/// every number from here.
class PqGraphSession
{
public:
    /// Events of one channel out of the envelope.
    struct Violations
    {
        qint64 above = 0;
        qint64 below = 0;
    };

    PqGraphSession();
    ~PqGraphSession();

    /// Reads the events of query `numbers` from `scratch` (its `PQLog_{Q}_{S}`) and the
    /// query's meters. A cancel keeps the channels read so far. Throws StorageError.
    void load(SqliteDatabase& scratch, const QueryNumbers& numbers, LoadProgress* progress);
    /// Events given directly (tests, benchmarks), with the meters' names.
    void setEvents(PqChannelEvents events, QStringList deviceNames);

    /// The envelope choice, made at each draw: the built-in curve when `useCbema` or when the
    /// boundary line file `path` cannot be read, else the file's lines. Returns the message
    /// to show when the file was wanted and refused (its reason, then "Use CBEMA curve."),
    /// else an empty text.
    QString chooseEnvelope(bool useCbema, const QString& path);
    const PqEnvelope& envelope() const { return m_envelope; }

    const PqChannelEvents& events() const { return m_events; }
    const PqCounts::Matrix& counts() const { return m_counts; }
    const PqCounts::Sums& sums() const { return m_sums; }
    const QStringList& deviceNames() const { return m_deviceNames; }

    /// The points of channel `channel` (0 to 5) on the 2D page: duration in seconds and
    /// magnitude in percent, a magnitude of exactly 0 nudged to 1e-7 so that the graph never
    /// receives a bare zero. A channel without events gets the one point (0, 1e-7), which a
    /// logarithmic duration axis cannot show: the chart has data and shows none.
    QList<QPointF> graphPoints(int channel) const;
    /// The capture of the loaded query whose trigger is `event`'s start on the same meter: its
    /// `RecCounter` in the query's waveform table; nothing when there is none or no query is
    /// loaded. Throws StorageError.
    std::optional<qint64> captureOf(const PqEvent& event) const;
    /// Where each event of each channel lies against the envelope.
    std::array<Violations, PqEvents::channelCount> violations() const;

    /// Texts of the window: the read-out of an event, the line counting events out of the
    /// envelope per channel, the device list.
    QString eventText(int channel, const PqEvent& event) const;
    QString summaryText() const;
    QString deviceListText() const;

private:
    void recount();

    PqChannelEvents m_events;
    PqCounts::Matrix m_counts{};
    PqCounts::Sums m_sums{};
    PqEnvelope m_envelope = PqEnvelope::cbema();
    QStringList m_deviceNames;
    std::unique_ptr<EventCellText> m_cells;
    SqliteDatabase* m_db = nullptr;
    QueryNumbers m_numbers;
};

} // namespace lorvane
