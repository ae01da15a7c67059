// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <functional>
#include <utility>

class QChartView;
class QDialog;
class QWidget;

namespace lorvane {

class LoadProgress;
class WaveGraphSession;
class YExtentsTarget;

/// The dialogs and outputs of the waveform window: export of the samples and of a graph,
/// print, properties, display settings, composition set-up, y extents and the user's note.
/// Tests answer the dialogs, the file question and the printer through the setters.
class WaveGraphDialogs
{
public:
    using Graphs = QList<std::pair<QString, QChartView*>>;
    using SavePath = std::function<QString(const QString& title, const QString& filter)>;

    /// Dialogs open over `parent`; `help` receives their help topic.
    WaveGraphDialogs(QWidget* parent, std::function<void(const QString&)> help);

    void setSavePath(SavePath savePath) { m_savePath = std::move(savePath); }
    void setPrintFile(const QString& path) { m_printFile = path; }
    void setDialogRunner(std::function<int(QDialog&)> runner) { m_runDialog = std::move(runner); }

    /// Export &Data: the sample table to the clipboard, then the information; nothing when
    /// `progress` was cancelled.
    void exportData(const WaveGraphSession& session, const QString& title, LoadProgress* progress);
    /// &Export Picture: choose one of `graphs`, then a PNG or SVG file.
    void exportPicture(const Graphs& graphs, const QString& title);
    /// Graph `index` of `graphs` to `path` (".svg" SVG, else PNG).
    static bool exportGraph(const Graphs& graphs, int index, const QString& path);
    /// &Print Graph: `graphs` through the print dialog (or to the print file as PDF).
    void print(const Graphs& graphs, const QString& title);
    /// The properties of the open capture, with the wiring's picture from `pictureFolder`.
    void properties(const WaveGraphSession& session, const QString& pictureFolder);
    /// Waveform Display Settings on `settingsFile`; true when they were written.
    bool settings(const QString& settingsFile);
    /// The set-up of the composition; true for &Graph. The session's list takes the choice.
    bool compositionSetup(WaveGraphSession& session);
    void yExtents(YExtentsTarget* chart);
    /// A command's message over the window, under its caption; nothing for an empty text.
    void tell(const QString& message, bool warning);
    /// Asks for the note's text; true when given.
    bool note(WaveGraphSession& session);

private:
    int run(QDialog& dialog);

    QWidget* m_parent;
    std::function<void(const QString&)> m_help;
    SavePath m_savePath;
    QString m_printFile;
    std::function<int(QDialog&)> m_runDialog;
};

} // namespace lorvane
