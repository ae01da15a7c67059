// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WaveCaptureJob.h"
#include "WaveGraphDialogs.h"
#include "WaveGraphProgress.h"
#include "WaveStripChart.h"
#include "waveform/WaveGraphSession.h"

#include <QWidget>
#include <array>
#include <functional>

class QCheckBox;
class QDialog;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace lorvane {

class SqliteDatabase;
class WorkGuard;
class WaveBarChart;
class WaveCapturePage;
class WaveGraphButtons;
class WaveCompositionPage;
class WaveInterharmonicPage;
class frmProgress;
struct RunContext;

/// The window of one waveform capture. The rules live in its `WaveGraphSession`; the window
/// holds the buttons, switches between the capture, interharmonic and composition pages, runs
/// the dialogs and forwards each command to the session and the page that shows it.
class TalWaveGraphPE : public QWidget
{
    Q_OBJECT

public:
    /// Index of a `Command1` button.
    enum Command
    {
        Help = 0,
        PrintGraph = 1,
        Close = 2,
        Details = 3,
        ZoomOut = 4,
        Properties = 6,
        Prev = 7,
        Next = 8,
        NeutralCurrent = 9,
        Inputs = 10,
        ExportPicture = 11,
        ExportData = 12,
        Advanced = 13,
        Interharmonic = 14,
        CommandCount = 15,
    };
    /// Index of a button of the view set: 0 to 4 make `Command2` of the detail and advanced
    /// views, all eight `Command3` of the interharmonic view, where 5 to 7 pick the graph.
    enum ViewCommand
    {
        ViewHelp = 0,
        ViewBack = 1,
        ViewPrintExport = 2,
        ViewEditGraph = 3,
        ViewZoomOut = 4,
        ViewWaveform = 5,
        ViewSpectrum = 6,
        ViewGroups = 7,
        ViewCommandCount = 8,
    };
    /// Index of a `Check1` box of the interharmonic view.
    enum Check
    {
        CheckNeutral = 0,
        CheckInputs = 1,
        CheckRms = 2,
        CheckCount = 3,
    };
    enum class State
    {
        Global,
        Detail,
        Interharmonic,
        Advanced,
    };
    /// Graph index of the inputs among `strip()` in the Classic mode.
    static constexpr int inputsGraph = 7;

    explicit TalWaveGraphPE(RunContext& context, QWidget* parent = nullptr);
    /// A window on `scratch` (which must outlive it) and the settings file `settingsFile`,
    /// whose long work enters `work` (which must outlive it too).
    TalWaveGraphPE(SqliteDatabase& scratch, QString settingsFile, WorkGuard& work,
                   QWidget* parent = nullptr);
    ~TalWaveGraphPE() override;

    /// Opens capture `series[position]` of query `numbers`; `rangeText` is the query's range
    /// for the caption. The capture is read off the window thread: true when the read started.
    /// A read that fails tells why; when it was the first, the window closes (so it does after
    /// a cancel of the first read). False, with the message shown, for a position outside the
    /// series; false and nothing shown while other work runs.
    bool open(const QueryNumbers& numbers, const QList<qint32>& series, int position,
              const QString& rangeText);
    /// P&rev (-1) and &Next (+1), read as `open` reads.
    void step(int delta);
    /// A capture is being read.
    bool reading() const { return m_reading->running(); }
    void clickAt(int channel, double x);
    /// Marks, "Clear Marks" (asks first), zoom and "Undo Zoom" act on the view shown.
    void setMark(int number, double x);
    void clearMarks();
    void zoomTo(double x0, double x1);
    void undoZoom();
    void zoomOutAll();
    void setZoomMode(WaveStripChart::ZoomMode mode);
    WaveStripChart::ZoomMode zoomMode() const { return m_zoomMode; }
    void setDetailsOn(bool on) { setToggle(&WaveGraphSession::setDetailsOn, on); }
    void setNeutralOn(bool on) { setToggle(&WaveGraphSession::setNeutralOn, on); }
    void setInputsOn(bool on) { setToggle(&WaveGraphSession::setInputsOn, on); }
    void exportData();
    void exportPicture();
    void printGraphs();
    /// The user's note: asks for its text, then the next click places it.
    void editNote();
    void placeNoteAtNextClick() { m_placingNote = true; }
    void clearNote();
    void placeInterharmonicMark(double x);
    void resetInterharmonicMark();
    /// "50Hz System" / "60Hz System": the interharmonic frequency, stored in the settings.
    void setInterharmonicFrequency(int hz);
    bool showInterharmonic();
    /// &Back: the capture as it was left (the analysis changed none of its arrays).
    void showCapture();
    void showCompositionSetup();
    void showComposition();
    void editSettings();
    void showProperties();
    void editYExtents(YExtentsTarget* chart);
    void editGraph();
    void showInterharmonicGraph(int command);
    void setRmsShown(bool on);

    void setProgressWindow(frmProgress* progress)
    {
        m_progress.setWindow(progress);
        m_reading->setProgressWindow(progress);
    }
    /// Tests answer the file question, the printer and the dialogs here.
    WaveGraphDialogs& dialogs() { return m_dialogs; }

    WaveGraphSession& session() { return m_session; }
    const WaveformCapture& capture() const { return m_session.capture(); }
    QStringList graphNames() const;
    WaveGraphButtons* buttons() const { return m_buttons; }
    WaveCapturePage* capturePage() const { return m_capturePage; }
    State state() const;
    WaveInterharmonicPage* interharmonicPage() const { return m_ihPage; }
    WaveCompositionPage* compositionPage() const { return m_compositionPage; }
    /// 0 the capture, 1 the interharmonic view, 2 the composition.
    int view() const;

signals:
    void helpRequested(const QString& topic);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void build();
    void connectPages();
    /// Starts the read of an open or a step; the capture is shown once it is in.
    bool load(const WaveGraphSession::Request& request);
    void refresh();
    void setToggle(void (WaveGraphSession::*toggle)(bool), bool on);
    void refreshState();
    QList<std::pair<QString, QChartView*>> viewGraphs() const;

    WaveGraphSession m_session;
    QString m_settingsFile;
    QString m_pictureFolder;
    WorkGuard& m_work;
    bool m_placingNote = false;
    WaveStripChart::ZoomMode m_zoomMode = WaveStripChart::ZoomMode::Horizontal;

    WaveGraphButtons* m_buttons = nullptr;
    QStackedWidget* m_pages = nullptr;
    WaveCapturePage* m_capturePage = nullptr;
    WaveInterharmonicPage* m_ihPage = nullptr;
    WaveCompositionPage* m_compositionPage = nullptr;
    WaveGraphDialogs m_dialogs;
    QLabel* m_status = nullptr;
    WaveGraphProgress m_progress;
    /// A child widget: a read still running when the window goes is stopped; it uses copies
    /// only, never the session.
    WaveCaptureJob* m_reading;
};

} // namespace lorvane
