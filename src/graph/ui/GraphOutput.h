// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QString>

class QPainter;
class QPrinter;
class QRectF;
class QWidget;

namespace lorvane {

/// Pictures of a chart, a strip stack, a painter canvas or a whole page (any widget): PNG,
/// SVG and PDF files, the printer with a preview, and the clipboard. Every form draws the
/// widget through the same painting as the screen, scaled to fit with its proportions kept,
/// so the windows' Print, Copy and Export commands show what the window shows.
class GraphOutput
{
public:
    /// The widget drawn at `scale` times its size on white.
    static QImage image(QWidget* widget, double scale = 1.0);
    /// Writes `widget` to `path` in the format its suffix names (.png, .svg, .pdf, any case);
    /// `title` names the SVG and PDF documents. False when the suffix is none of these or the
    /// file could not be written.
    static bool save(QWidget* widget, const QString& path, const QString& title = {});
    static bool savePng(QWidget* widget, const QString& path);
    static bool saveSvg(QWidget* widget, const QString& path, const QString& title);
    static bool savePdf(QWidget* widget, const QString& path, const QString& title);
    /// Draws `widget` on the printer's page (landscape or portrait as the printer is set).
    /// False when the printer could not start.
    static bool print(QWidget* widget, QPrinter* printer);
    /// The print dialog's preview of `widget`, printing on the user's choice. False when the
    /// user cancelled.
    static bool printWithPreview(QWidget* widget, QWidget* parent);
    /// Puts the picture on the clipboard.
    static void copyToClipboard(QWidget* widget);
    /// Draws `widget` into `target` of `painter`, scaled to fit with its proportions kept.
    static void render(QWidget* widget, QPainter* painter, const QRectF& target);
};

} // namespace lorvane
