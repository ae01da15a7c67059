// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureFile.h"

#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace lorvane {

namespace {

QString suffix(const QString& path)
{
    return QFileInfo(path).suffix().toLower();
}

bool draw(QPaintDevice& device, const QRectF& area, const PictureFile::Paint& paint)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.fillRect(area, Qt::white);
    paint(painter, area);
    return painter.end();
}

} // namespace

bool PictureFile::knownSuffix(const QString& path)
{
    const QString s = suffix(path);
    return s == QLatin1String("png") || s == QLatin1String("svg") || s == QLatin1String("pdf");
}

bool PictureFile::save(const QString& path, QSize size, const QString& title, const Paint& paint)
{
    const QString s = suffix(path);
    const QRectF area(QPointF(0, 0), QSizeF(size));
    if (s == QLatin1String("png")) {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::white);
        return draw(image, area, paint) && image.save(path, "PNG");
    }
    if (s == QLatin1String("svg")) {
        QSvgGenerator svg;
        svg.setFileName(path);
        svg.setSize(size);
        svg.setViewBox(area);
        svg.setTitle(title);
        return draw(svg, area, paint) && QFileInfo(path).size() > 0;
    }
    if (s == QLatin1String("pdf")) {
        QPdfWriter pdf(path);
        pdf.setTitle(title);
        pdf.setResolution(72);
        pdf.setPageSize(QPageSize(QSizeF(size), QPageSize::Point));
        pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
        return draw(pdf, area, paint) && QFileInfo(path).size() > 0;
    }
    return false;
}

} // namespace lorvane
