// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphOutput.h"

#include <QChartView>
#include <QPainter>
#include <QPrinter>
#include <QSvgGenerator>

namespace lorvane {

bool WaveGraphOutput::save(QChartView* view, const QString& title, const QString& path)
{
    if (path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
        QSvgGenerator svg;
        svg.setFileName(path);
        svg.setSize(view->size());
        svg.setViewBox(view->rect());
        svg.setTitle(title);
        QPainter painter;
        if (!painter.begin(&svg))
            return false;
        view->render(&painter);
        return painter.end();
    }
    return view->grab().save(path, "PNG");
}

bool WaveGraphOutput::print(const QList<QChartView*>& views, QPrinter& printer)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
    const double slot = page.height() / 3;
    for (int i = 0; i < views.size(); ++i) {
        if (i > 0 && i % 3 == 0)
            printer.newPage();
        views.at(i)->render(&painter, QRectF(0, (i % 3) * slot, page.width(), slot * 0.95));
    }
    return painter.end();
}

} // namespace lorvane
