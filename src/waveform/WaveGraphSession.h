// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "InterharmonicAnalysis.h"
#include "WaveCompositionList.h"
#include "WaveDisplaySettings.h"
#include "WaveMarks.h"
#include "WaveZoomStack.h"
#include "WaveformCapture.h"
#include "WaveformStatistics.h"

#include <QList>
#include <QString>
#include <optional>

namespace lorvane {

class LoadProgress;
class SqliteDatabase;

/// The state and rules of the waveform window without the window: the series of captures and
/// the open one, the cursor and its statistics, the marks, the zoom stack, the toggles of the
/// strips, the strips and their annotations, the caption, the interharmonic start and the
/// composition list. The window draws what this holds and forwards its commands here.
class WaveGraphSession
{
public:
    /// What a command tells the user: nothing (empty text), information or a warning.
    struct Outcome
    {
        bool ok = true;
        QString message;
        bool warning = false;
    };
    /// One graph of the capture view: the channels drawn in it, its name and y title.
    struct Strip
    {
        QList<int> channels;
        QString name;
        QString yTitle;
    };
    using Range = WaveZoomStack::Range;
    /// Reading one capture of the series: the part of open and step that may run off the
    /// window thread. It reads through the connection it is given (a job's own connection to
    /// the scratch file) and touches nothing of the session.
    struct CaptureRead
    {
        QueryNumbers numbers;
        qint32 recCounter = 0;
        int position = -1;
        int talmoFrequency = 0;
        /// A step keeps the capture shown when the new one fails; an open drops it.
        bool keepOnFailure = false;

        WaveformCapture run(SqliteDatabase& scratch, LoadProgress* progress) const;
    };
    /// What a command asks to read, or why it reads nothing.
    struct Request
    {
        std::optional<CaptureRead> read;
        Outcome refusal;
    };

    /// Works on `scratch`, which must outlive the session, with the display `settings`.
    WaveGraphSession(SqliteDatabase& scratch, const WaveDisplaySettings& settings);

    /// Opens capture `series[position]` of query `numbers`; `rangeText` is the query's range as
    /// the grid shows it (for the caption). Marks, cursor, zoom and interharmonic start start
    /// afresh. A failure keeps nothing of the capture and says why.
    Outcome open(const QueryNumbers& numbers, const QList<qint32>& series, int position,
                 const QString& rangeText, LoadProgress* progress = nullptr);
    /// P&rev (-1) and &Next (+1). At the ends the message and the capture stays; a capture
    /// that fails to load is told and the one shown stays.
    Outcome step(int delta, LoadProgress* progress = nullptr);
    /// `open` and `step` in parts, for a window that reads off its thread: the request, the
    /// read (`CaptureRead::run`, anywhere), and `take` of what was read, on the session's thread.
    Request requestOpen(const QueryNumbers& numbers, const QList<qint32>& series, int position,
                        const QString& rangeText);
    Request requestStep(int delta) const;
    /// Shows `capture`, read for `read`, on the session's own connection.
    Outcome take(const CaptureRead& read, WaveformCapture capture);

    const WaveformCapture& capture() const { return m_capture; }
    WaveformCapture& capture() { return m_capture; }
    bool isOpen() const { return m_capture.isOpen(); }
    const QueryNumbers& numbers() const { return m_numbers; }
    const QList<qint32>& series() const { return m_series; }
    int position() const { return m_position; }
    /// "Waveform #12: PQ SAG Va. 2024-03-04 10:15:00.1000 (range), 14 - Waveforms", made
    /// from the open capture, so that it follows P&rev and &Next.
    QString caption() const;
    /// The device name, " - " and the caption.
    QString windowTitle() const;
    const WaveDisplaySettings& settings() const { return m_settings; }
    /// New settings: the strips are planned again; a new display frequency of the family
    /// without the neutral current reopens the capture on its axis.
    void setSettings(const WaveDisplaySettings& settings);

    /// A click at `ms` on the strip of `channel`: the focus moves there and the statistics of
    /// the cycle from the clicked sample are computed; the cursor sits on the cycle's first
    /// sample (moved back so that a cycle fits).
    void click(int channel, double ms);
    bool hasStatistics() const { return m_statistics.has_value(); }
    /// The statistics of the last click; "N/A" everywhere before one.
    const WaveformStatistics::ChannelStatistics& statistics() const;
    /// The five-line statistics text; empty before a click.
    QString statisticsText() const;
    std::optional<double> cursorMs() const { return m_cursor; }
    int focus() const { return m_focus; }

    WaveMarks& marks() { return m_marks; }
    const WaveMarks& marks() const { return m_marks; }

    /// The time range shown and its zoom stack over the whole capture.
    WaveZoomStack& zoom() { return m_zoom; }
    const WaveZoomStack& zoom() const { return m_zoom; }

    bool detailsOn() const { return m_detailsOn; }
    bool neutralOn() const { return m_neutralOn; }
    bool inputsOn() const { return m_inputsOn; }
    void setDetailsOn(bool on) { m_detailsOn = on; }
    void setNeutralOn(bool on) { m_neutralOn = on; }
    void setInputsOn(bool on) { m_inputsOn = on; }

    /// The strips of the display mode: a strip per analog channel and the inputs (Classic), or
    /// the overlay items in one graph (Overlay) or a graph per kind (Overlay (Group)).
    QList<Strip> strips() const;
    /// Whether `strip` is shown: the detail view shows the focus strip alone (Classic), the
    /// I_n strip follows its toggle and the inputs theirs.
    bool stripShown(const Strip& strip) const;
    /// The annotations of `strip`: marks and their interval, the trigger, the PQ start and end,
    /// the interharmonic start, the user's note, and on the focus strip the cursor and the
    /// transient peaks.
    QList<WaveMarks::Annotation> annotations(const Strip& strip) const;

    /// The user's note and where it stands (none until placed).
    void setNote(const QString& text) { m_note = text; }
    const QString& note() const { return m_note; }
    void placeNote(double x) { m_notePosition = x; }
    void clearNote();

    InterharmonicAnalysis& interharmonic() { return m_interharmonic; }
    /// The frequency the axis notes name: the capture's system, or after an interharmonic run
    /// the frequency of its window.
    int displayFrequency() const;
    /// "Place mark": the interharmonic window from the sample at `ms`, if it fits there.
    InterharmonicAnalysis::Preparation placeInterharmonicMark(double ms);
    void resetInterharmonicMark();
    /// The interharmonic analysis of the focus channel; the device type comes first, then the
    /// fit. The capture's own arrays are left as they are.
    /// Never throws: a row that cannot be read ends it with the engine's message. `progress`
    /// gets the share done and a text before each following capture is read; its cancel stops
    /// the run half-way with nothing shown.
    InterharmonicAnalysis::Result runInterharmonic(LoadProgress* progress = nullptr);

    /// RMS over the whole capture of each recorded analog channel, with its label: the level
    /// the interharmonic percentages stand against.
    QList<std::pair<QString, double>> captureRms() const;

    /// The right-hand list of the composition set-up; it lives as long as the window.
    WaveCompositionList& composition() { return m_composition; }
    /// One curve of the composition: its legend and the channel's samples between the item's
    /// limits over an axis that starts at 0 ms.
    struct CompositionCurve
    {
        QString legend;
        int channel = 0;
        QVector<float> time;
        QVector<float> values;
    };
    /// The curves of the composition list, each item's capture opened afresh; a capture that
    /// fails leaves its curve empty and its message in `failures`. `progress` gets each
    /// capture's share of the list.
    QList<CompositionCurve> compositionCurves(QStringList& failures,
                                              LoadProgress* progress = nullptr) const;
    /// The channels of the open capture and of its neighbours in the series, as the left-hand
    /// list of the set-up offers them.
    QList<WaveCompositionItem> compositionCandidates() const;

private:
    CaptureRead readAt(int position) const;
    Outcome load(const Request& request, LoadProgress* progress);

    SqliteDatabase& m_scratch;
    WaveDisplaySettings m_settings;
    QueryNumbers m_numbers;
    QList<qint32> m_series;
    int m_position = -1;
    QString m_rangeText;
    WaveformCapture m_capture;
    std::optional<WaveformStatistics::ChannelStatistics> m_statistics;
    std::optional<double> m_cursor;
    int m_focus = 0;
    WaveMarks m_marks;
    WaveZoomStack m_zoom;
    bool m_detailsOn = false;
    bool m_neutralOn = true;
    bool m_inputsOn = true;
    QString m_note;
    std::optional<double> m_notePosition;
    InterharmonicAnalysis m_interharmonic;
    /// Frequency of the last interharmonic window of this capture; 0 before one.
    int m_interharmonicFrequency = 0;
    WaveCompositionList m_composition;
};

} // namespace lorvane
