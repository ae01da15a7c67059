// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphDialogs.h"

#include "WaveGraphCompSetup.h"
#include "WaveGraphOutput.h"
#include "WaveGraphSetup.h"
#include "WavePropertyFrm.h"
#include "frmSetYExtents.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "selWaveGraph_Export.h"
#include "waveform/WaveExportText.h"
#include "waveform/WaveGraphSession.h"
#include "waveform/WaveformProperties.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QInputDialog>
#include <QPrintDialog>
#include <QPrinter>

namespace lorvane {

WaveGraphDialogs::WaveGraphDialogs(QWidget* parent, std::function<void(const QString&)> help)
    : m_parent(parent), m_help(std::move(help))
{
}

int WaveGraphDialogs::run(QDialog& dialog)
{
    return m_runDialog ? m_runDialog(dialog) : dialog.exec();
}

void WaveGraphDialogs::exportData(const WaveGraphSession& session, const QString& title,
                                  LoadProgress* progress)
{
    if (!session.isOpen())
        return;
    const QString text = WaveExportText::text(session.capture().channels(), progress);
    if (text.isEmpty())
        return;
    QApplication::clipboard()->setText(text);
    userMessages().show(userText("503436", "Data may be in OS`s Clipboard. Select Paste in your "
                                           "application to see the data."),
                        UserMessages::Icon::Information, title);
}

void WaveGraphDialogs::exportPicture(const Graphs& graphs, const QString& title)
{
    QStringList names;
    for (const auto& [name, graph] : graphs)
        names << name;
    selWaveGraph_Export chooser(names, m_parent);
    QObject::connect(&chooser, &selWaveGraph_Export::helpRequested, m_help);
    if (run(chooser) != QDialog::Accepted || chooser.chosen() < 0)
        return;
    const QString caption = userText("503437", "Export Picture");
    const QString filter = userText("503438", "PNG picture (*.png);;SVG drawing (*.svg)");
    const QString path = m_savePath
                             ? m_savePath(caption, filter)
                             : QFileDialog::getSaveFileName(m_parent, caption, QString(), filter);
    if (!path.isEmpty() && !exportGraph(graphs, chooser.chosen(), path))
        userMessages().show(userText("503439", "The picture could not be written to ") + path +
                                u'.',
                            UserMessages::Icon::Warning, title);
}

bool WaveGraphDialogs::exportGraph(const Graphs& graphs, int index, const QString& path)
{
    return index >= 0 && index < graphs.size() &&
           WaveGraphOutput::save(graphs.at(index).second, graphs.at(index).first, path);
}

void WaveGraphDialogs::print(const Graphs& graphs, const QString& title)
{
    QPrinter printer(QPrinter::HighResolution);
    if (!m_printFile.isEmpty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(m_printFile);
    } else if (QPrintDialog dialog(&printer, m_parent); run(dialog) != QDialog::Accepted) {
        return;
    }
    QList<QChartView*> views;
    for (const auto& [name, graph] : graphs)
        views << graph;
    if (!WaveGraphOutput::print(views, printer))
        userMessages().show(userText("503440", "The printer could not be opened."),
                            UserMessages::Icon::Warning, title);
}

void WaveGraphDialogs::properties(const WaveGraphSession& session, const QString& pictureFolder)
{
    if (!session.isOpen())
        return;
    const WaveformRecord& record = session.capture().record();
    const QString picture = WaveformProperties::hookupPicture(record.hookUp, record.deviceTypeId);
    WavePropertyFrm frame(
        WaveformProperties::rows(record, session.capture().pqEvent()),
        picture.isEmpty() ? QString() : pictureFolder + u'/' + picture + QStringLiteral(".svg"),
        m_parent);
    QObject::connect(&frame, &WavePropertyFrm::helpRequested, m_help);
    run(frame);
}

bool WaveGraphDialogs::settings(const QString& settingsFile)
{
    WaveGraphSetup setup(settingsFile, m_parent);
    QObject::connect(&setup, &WaveGraphSetup::helpRequested, m_help);
    return run(setup) == QDialog::Accepted;
}

bool WaveGraphDialogs::compositionSetup(WaveGraphSession& session)
{
    const WaveMarks& marks = session.marks();
    const double start = marks.bothSet() ? std::min(*marks.position(1), *marks.position(2)) : -1;
    const double end = marks.bothSet() ? std::max(*marks.position(1), *marks.position(2)) : -1;
    WaveGraphCompSetup setup(session.compositionCandidates(), start, end, session.composition(),
                             m_parent);
    QObject::connect(&setup, &WaveGraphCompSetup::helpRequested, m_help);
    const bool graph = run(setup) == QDialog::Accepted;
    session.composition() = setup.selected();
    return graph;
}

void WaveGraphDialogs::yExtents(YExtentsTarget* chart)
{
    frmSetYExtents extents(chart, m_parent);
    run(extents);
}

bool WaveGraphDialogs::note(WaveGraphSession& session)
{
    bool ok = false;
    const QString text = QInputDialog::getText(m_parent, userText("503462", "User Anotation"),
                                               QString(), QLineEdit::Normal, session.note(), &ok);
    if (ok)
        session.setNote(text);
    return ok;
}

void WaveGraphDialogs::tell(const QString& message, bool warning)
{
    if (!message.isEmpty())
        userMessages().show(message,
                            warning ? UserMessages::Icon::Warning : UserMessages::Icon::Information,
                            m_parent->windowTitle());
}

} // namespace lorvane
