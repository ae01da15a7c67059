// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicPictureFile.h"

#include "RelayLogicPicture.h"
#include "relaylogic/RelayLogicTexts.h"

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

bool draw(QPaintDevice& device, const RelayLogicTree& tree, const QRectF& area)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.fillRect(area, Qt::white);
    RelayLogicPicture::paint(painter, area, tree);
    return painter.end();
}

} // namespace

bool RelayLogicPictureFile::knownSuffix(const QString& path)
{
    const QString s = suffix(path);
    return s == QLatin1String("png") || s == QLatin1String("svg") || s == QLatin1String("pdf");
}

bool RelayLogicPictureFile::save(const RelayLogicTree& tree, const QString& path, QSize size)
{
    const QString s = suffix(path);
    const QRectF area(QPointF(0, 0), QSizeF(size));
    const QString title = RelayLogicTexts::title(tree.deviceTypeId);
    if (s == QLatin1String("png")) {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::white);
        return draw(image, tree, area) && image.save(path, "PNG");
    }
    if (s == QLatin1String("svg")) {
        QSvgGenerator svg;
        svg.setFileName(path);
        svg.setSize(size);
        svg.setViewBox(area);
        svg.setTitle(title);
        return draw(svg, tree, area) && QFileInfo(path).size() > 0;
    }
    if (s == QLatin1String("pdf")) {
        QPdfWriter pdf(path);
        pdf.setTitle(title);
        pdf.setResolution(72);
        pdf.setPageSize(QPageSize(QSizeF(size), QPageSize::Point));
        pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
        return draw(pdf, tree, area) && QFileInfo(path).size() > 0;
    }
    return false;
}

} // namespace lorvane
