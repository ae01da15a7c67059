// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WaveStripChart.h"
#include "waveform/InterharmonicAnalysis.h"
#include "waveform/WaveCompositionList.h"
#include "waveform/WaveDisplaySettings.h"
#include "waveform/WaveMarks.h"
#include "waveform/WaveformCapture.h"
#include "waveform/WaveformStatistics.h"

#include <QWidget>
#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QLabel;
class QPushButton;
class QScrollBar;
class QStackedWidget;
class QTimer;
class QVBoxLayout;

namespace lorvane {

class SqliteDatabase;
class WaveBarChart;
class frmProgress;
struct RunContext;

/// The window of one waveform capture: a strip per channel over a time axis in milliseconds,
/// the inputs, statistics and harmonics of a clicked cycle, marks, zoom, navigation through the
/// captures of the log grid, exports, and the interharmonic and composition views.
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
    /// What the window shows.
    enum class State
    {
        /// All strips of the capture.
        Global,
        /// The strip in focus with its harmonics.
        Detail,
        Interharmonic,
        /// The composition of several captures.
        Advanced,
    };
    /// Graph index of the inputs among `strip()`.
    static constexpr int inputsGraph = 7;
    /// Asks for a file name to save to: (title, filter); empty for none.
    using SavePath = std::function<QString(const QString& title, const QString& filter)>;

    /// A window on the run's scratch database and settings file.
    explicit TalWaveGraphPE(RunContext& context, QWidget* parent = nullptr);
    /// A window on `scratch` (which must outlive it) and the settings file `settingsFile`.
    TalWaveGraphPE(SqliteDatabase& scratch, QString settingsFile, QWidget* parent = nullptr);
    ~TalWaveGraphPE() override;

    /// Opens the capture `series[position]` of query `numbers` (the `RecCounter`s of the grid's
    /// rows, for P&rev and &Next). False, with the loader's message shown, when it fails to load.
    bool open(const QueryNumbers& numbers, const QList<qint32>& series, int position,
              const QString& caption);
    /// P&rev (-1) and &Next (+1); at the ends the message and the capture stays.
    void step(int delta);

    /// A click at `x` ms on the strip of `channel`: cursor, statistics, harmonics.
    void clickAt(int channel, double x);
    void setMark(int number, double x);
    /// "Clear Marks": asks first, then removes both.
    void clearMarks();
    /// All strips show [x0, x1]; the range before goes on the zoom stack.
    void zoomTo(double x0, double x1);
    /// "Undo Zoom": one step back.
    void undoZoom();
    /// &Zoom Out: the whole capture.
    void zoomOutAll();
    void setDetailsOn(bool on);
    void setNeutralOn(bool on);
    void setInputsOn(bool on);
    /// Export &Data: the sample table to the clipboard.
    void exportData();
    /// &Export Picture: choose a graph, then a PNG or SVG file.
    void exportPicture();
    /// Writes graph `index` of `graphNames()` to `path` (".svg" writes SVG, else PNG).
    bool exportGraph(int index, const QString& path);
    /// &Print Graph: the graphs shown, through the print dialog or to `printFile` as PDF.
    void printGraphs();
    /// The interharmonic view of the channel in focus; false with the warning shown.
    bool showInterharmonic();
    /// Back from the interharmonic or composition view to the capture.
    void showCapture();
    /// "Advanced Waveform": the set-up and, on &Graph, the composition.
    void showCompositionSetup();
    /// Draws the composition of `list`.
    void showComposition(const WaveCompositionList& list);
    /// Waveform Display Settings, then applies them.
    void editSettings();
    /// The properties window of the open capture.
    void showProperties();
    /// "Set Y Extents" for a graph.
    void editYExtents(YExtentsTarget* chart);
    /// "&Edit Graph": the y extents of the graph the view shows.
    void editGraph();
    /// The interharmonic graph shown alone: `ViewWaveform`, `ViewSpectrum` or `ViewGroups`.
    void showInterharmonicGraph(int command);
    /// Writes the RMS values of the capture's channels on the interharmonic trace, or takes
    /// them off.
    void setRmsShown(bool on);

    /// Shows the progress of opening a capture and of the interharmonic computation in
    /// `progress` (the run's window, which must outlive this one); without one the status
    /// line of the window shows it.
    void setProgressWindow(frmProgress* progress) { m_progress = progress; }

    /// Saves with this instead of the file dialog (tests).
    void setSavePath(SavePath savePath) { m_savePath = std::move(savePath); }
    /// Prints to this PDF file instead of through the print dialog (tests).
    void setPrintFile(const QString& path) { m_printFile = path; }
    /// Runs the dialogs through this instead of exec() (tests): it gets the dialog and answers
    /// as exec() would.
    void setDialogRunner(std::function<int(QDialog&)> runner) { m_runDialog = std::move(runner); }

    const WaveformCapture& capture() const { return m_capture; }
    /// Graph `index`: 0..6 the channel strips, 7 the inputs (nullptr when not built).
    WaveStripChart* strip(int index) const;
    WaveBarChart* harmonicChart() const { return m_harmonics; }
    /// Names of the graphs shown, as the export dialog lists them.
    QStringList graphNames() const;
    QPushButton* command(int index) const { return m_commands.at(index); }
    /// Button `index` of the view set (`ViewCommand`).
    QPushButton* viewCommand(int index) const { return m_viewCommands.at(index); }
    QCheckBox* check(int index) const { return m_checks.at(index); }
    State state() const;
    /// The five-line statistics of the last click; empty before one.
    QString statisticsText() const;
    const WaveformStatistics::ChannelStatistics& statistics() const { return m_statistics; }
    const WaveMarks& marks() const { return m_marks; }
    int focusChannel() const { return m_focus; }
    int position() const { return m_position; }
    bool busy() const { return m_busy; }
    int zoomDepth() const { return static_cast<int>(m_zoomStack.size()); }
    /// The three graphs of the interharmonic view and the composition graph.
    WaveStripChart* interharmonicTrace() const { return m_ihTrace; }
    WaveBarChart* interharmonicSpectrum() const { return m_ihSpectrum; }
    WaveBarChart* interharmonicGroups() const { return m_ihGroups; }
    WaveStripChart* compositionChart() const { return m_composition; }
    /// 0 the capture, 1 the interharmonic view, 2 the composition.
    int view() const;
    const QList<WaveCompositionItem>& compositionItems() const { return m_compositionItems; }

signals:
    void helpRequested(const QString& topic);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    struct Graph
    {
        WaveStripChart* chart = nullptr;
        QList<int> channels;
        QString name;
    };

    void build();
    void buildCommands(QVBoxLayout* layout);
    void buildGraphs();
    void connectChart(WaveStripChart* chart, int channel);
    void showMenu(WaveStripChart* chart, int channel, double x, const QPoint& globalPosition);
    void applyRange(double x0, double x1);
    void refreshAnnotations();
    void refreshCommands();
    void showStatistics();
    int runDialog(QDialog& dialog);
    bool loadAt(int position);
    double stepMs() const;
    QList<WaveCompositionItem> compositionCandidates();
    /// The graphs the view shows, with their names, in the order of the export list.
    QList<std::pair<QString, QChartView*>> viewGraphs() const;
    void buildViewCommands();
    /// Shows the button set of the state and the tips that go with it.
    void refreshState();
    void beginProgress(const QString& title);
    /// One step of a long operation: the text goes to the progress window or the status line
    /// and the window's events are served.
    void progressStep(const QString& text);
    void endProgress();
    QString rmsText() const;

    SqliteDatabase& m_scratch;
    QString m_settingsFile;
    /// Where the wiring drawings are; empty without an installation (no drawing is shown).
    QString m_pictureFolder;
    QueryNumbers m_numbers;
    QList<qint32> m_series;
    int m_position = -1;
    QString m_caption;
    WaveformCapture m_capture;
    WaveDisplaySettings m_settings;
    InterharmonicAnalysis m_interharmonic;
    WaveformStatistics::ChannelStatistics m_statistics;
    bool m_hasStatistics = false;
    WaveMarks m_marks;
    std::optional<double> m_cursor;
    std::optional<double> m_userNotePosition;
    QString m_userNote;
    bool m_placingNote = false;
    int m_focus = 0;
    bool m_detailsOn = false;
    bool m_neutralOn = true;
    bool m_inputsOn = true;
    bool m_busy = false;
    QList<std::pair<double, double>> m_zoomStack;
    WaveStripChart::ZoomMode m_zoomMode = WaveStripChart::ZoomMode::Horizontal;

    std::array<QPushButton*, CommandCount> m_commands{};
    std::array<QPushButton*, ViewCommandCount> m_viewCommands{};
    std::array<QCheckBox*, CheckCount> m_checks{};
    QStackedWidget* m_commandSets = nullptr;
    frmProgress* m_progress = nullptr;
    QStackedWidget* m_pages = nullptr;
    QWidget* m_graphArea = nullptr;
    QVBoxLayout* m_graphLayout = nullptr;
    QList<Graph> m_graphs;
    WaveBarChart* m_harmonics = nullptr;
    QScrollBar* m_scroll = nullptr;
    QTimer* m_waveTimer = nullptr;
    QLabel* m_status = nullptr;
    WaveStripChart* m_ihTrace = nullptr;
    WaveBarChart* m_ihSpectrum = nullptr;
    WaveBarChart* m_ihGroups = nullptr;
    WaveStripChart* m_composition = nullptr;
    int m_ihGraph = ViewWaveform;
    QList<WaveformChannels> m_compositionData;
    QList<WaveCompositionItem> m_compositionItems;
    WaveCompositionList m_lastComposition;
    InterharmonicAnalysis::Result m_ihResult;

    SavePath m_savePath;
    QString m_printFile;
    std::function<int(QDialog&)> m_runDialog;
};

} // namespace lorvane
