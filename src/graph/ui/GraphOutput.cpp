// SPDX-License-Identifier: GPL-3.0-or-later
#include "GraphOutput.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QSvgGenerator>
#include <QWidget>
#include <algorithm>

namespace lorvane {

namespace {

/// Resolution of PDF pages: fine enough that lines and text stay sharp when zoomed.
constexpr int pdfResolution = 300;

/// The printable part of a page in the painter's coordinates, which start at its top left.
QRectF pageArea(const QPageLayout& layout, int resolution)
{
    return QRectF(QPointF(), QSizeF(layout.paintRectPixels(resolution).size()));
}

} // namespace

void GraphOutput::render(QWidget* widget, QPainter* painter, const QRectF& target)
{
    const QSize size = widget->size();
    if (size.isEmpty() || target.isEmpty())
        return;
    const double scale = std::min(target.width() / size.width(), target.height() / size.height());
    painter->save();
    painter->translate(target.left() + (target.width() - scale * size.width()) / 2,
                       target.top() + (target.height() - scale * size.height()) / 2);
    painter->scale(scale, scale);
    widget->render(painter, QPoint(), QRegion(), QWidget::DrawChildren);
    painter->restore();
}

QImage GraphOutput::image(QWidget* widget, double scale)
{
    const QSize size = (QSizeF(widget->size()) * scale).toSize();
    QImage picture(size.expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    render(widget, &painter, QRectF(QPointF(), QSizeF(size)));
    return picture;
}

bool GraphOutput::save(QWidget* widget, const QString& path, const QString& title)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("png"))
        return savePng(widget, path);
    if (suffix == QLatin1String("svg"))
        return saveSvg(widget, path, title);
    if (suffix == QLatin1String("pdf"))
        return savePdf(widget, path, title);
    return false;
}

bool GraphOutput::savePng(QWidget* widget, const QString& path)
{
    return image(widget).save(path, "PNG");
}

bool GraphOutput::saveSvg(QWidget* widget, const QString& path, const QString& title)
{
    QSvgGenerator svg;
    svg.setFileName(path);
    svg.setTitle(title);
    svg.setSize(widget->size());
    svg.setViewBox(QRect(QPoint(), widget->size()));
    QPainter painter;
    if (!painter.begin(&svg))
        return false;
    painter.fillRect(QRect(QPoint(), widget->size()), Qt::white);
    render(widget, &painter, QRectF(QPointF(), QSizeF(widget->size())));
    return painter.end() && QFileInfo(path).size() > 0;
}

bool GraphOutput::savePdf(QWidget* widget, const QString& path, const QString& title)
{
    QPdfWriter pdf(path);
    pdf.setTitle(title);
    pdf.setResolution(pdfResolution);
    const bool wide = widget->width() >= widget->height();
    pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4),
                                  wide ? QPageLayout::Landscape : QPageLayout::Portrait,
                                  QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter));
    QPainter painter;
    if (!painter.begin(&pdf))
        return false;
    render(widget, &painter, pageArea(pdf.pageLayout(), pdfResolution));
    return painter.end();
}

bool GraphOutput::print(QWidget* widget, QPrinter* printer)
{
    QPainter painter;
    if (!painter.begin(printer))
        return false;
    render(widget, &painter, pageArea(printer->pageLayout(), printer->resolution()));
    return painter.end();
}

bool GraphOutput::printWithPreview(QWidget* widget, QWidget* parent)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(widget->width() >= widget->height() ? QPageLayout::Landscape
                                                                   : QPageLayout::Portrait);
    QPrintPreviewDialog preview(&printer, parent);
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [widget](QPrinter* target) { print(widget, target); });
    return preview.exec() == QDialog::Accepted;
}

void GraphOutput::copyToClipboard(QWidget* widget)
{
    QGuiApplication::clipboard()->setImage(image(widget));
}

} // namespace lorvane
