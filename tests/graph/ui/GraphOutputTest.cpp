// SPDX-License-Identifier: GPL-3.0-or-later
// Every picture form of a chart, a strip stack and a painter canvas, written and read back.
#include "graph/ui/GraphOutput.h"

#include "graph/SeriesPyramid.h"
#include "graph/ui/ChartCanvas.h"
#include "graph/ui/PictureCanvas.h"
#include "graph/ui/StripStack.h"

#include <QFile>
#include <QImage>
#include <QLineSeries>
#include <QPainter>
#include <QPrinter>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>

using namespace lorvane;

namespace {

/// A painter picture: a frame, a circle and a text, like the dial of a power graph.
class DialPicture : public PictureCanvas
{
protected:
    void paintPicture(QPainter& painter, const QRectF& area) override
    {
        painter.setPen(QPen(Qt::darkBlue, 3));
        painter.drawRect(area.adjusted(5, 5, -5, -5));
        painter.drawEllipse(area.center(), area.height() / 3, area.height() / 3);
        painter.drawText(area.adjusted(10, 10, -10, -10), QStringLiteral("Dial"));
    }
};

std::shared_ptr<const PlotSeries> sineSeries(int count)
{
    QVector<double> x(count);
    QVector<double> y(count);
    for (int i = 0; i < count; ++i) {
        x[i] = i;
        y[i] = 100 * std::sin(i * 0.01);
    }
    return std::make_shared<SeriesPyramid<double>>(x, y);
}

void addSine(ChartCanvas* canvas)
{
    auto* line = new QLineSeries;
    line->setName(QStringLiteral("Va"));
    canvas->addSeries(line, sineSeries(20000));
    canvas->fitToData();
}

/// Share of pixels that are not white.
double inkShare(const QImage& image)
{
    qint64 ink = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ink += image.pixelColor(x, y) != QColor(Qt::white);
    return double(ink) / std::max<qint64>(1, qint64(image.width()) * image.height());
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(GraphOutput, WritesPngSvgAndPdfOfChartsStacksAndPictures)
{
    auto chart = std::make_unique<ChartCanvas>();
    addSine(chart.get());
    auto stack = std::make_unique<StripStack>();
    addSine(stack->addStrip());
    addSine(stack->addStrip());
    stack->fitToData();
    auto dial = std::make_unique<DialPicture>();
    struct Subject
    {
        const char* name;
        QWidget* widget;
    };
    const Subject subjects[] = {
        {"chart", chart.get()}, {"stack", stack.get()}, {"dial", dial.get()}};
    QTemporaryDir folder;
    for (const Subject& subject : subjects) {
        SCOPED_TRACE(subject.name);
        subject.widget->resize(640, 400);
        subject.widget->show();
        const QString base = folder.filePath(QString::fromLatin1(subject.name));

        ASSERT_TRUE(GraphOutput::save(subject.widget, base + QStringLiteral(".PNG")));
        const QImage png(base + QStringLiteral(".PNG"));
        EXPECT_EQ(png.size(), QSize(640, 400));
        EXPECT_GT(inkShare(png), 0.01);

        ASSERT_TRUE(GraphOutput::save(subject.widget, base + QStringLiteral(".svg"), "Graph"));
        QSvgRenderer svg(base + QStringLiteral(".svg"));
        ASSERT_TRUE(svg.isValid());
        QImage drawn(640, 400, QImage::Format_ARGB32);
        drawn.fill(Qt::white);
        QPainter painter(&drawn);
        svg.render(&painter);
        painter.end();
        EXPECT_GT(inkShare(drawn), 0.01);

        // A PDF file, and the printer's path (here into a PDF file): one page with the picture.
        ASSERT_TRUE(GraphOutput::save(subject.widget, base + QStringLiteral(".pdf"), "Graph"));
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(base + QStringLiteral("-printed.pdf"));
        ASSERT_TRUE(GraphOutput::print(subject.widget, &printer));
        for (const QString& path : {base + QStringLiteral(".pdf"), printer.outputFileName()}) {
            const QByteArray pdf = contents(path);
            EXPECT_TRUE(pdf.startsWith("%PDF-"));
            EXPECT_EQ(pdf.count("/Type /Page\n") + pdf.count("/Type /Page\r") +
                          pdf.count("/Type /Page "),
                      1);
            EXPECT_GT(pdf.size(), 2000);
        }
    }
    // A suffix that names no format, and a folder that does not exist, write nothing.
    EXPECT_FALSE(GraphOutput::save(chart.get(), folder.filePath(QStringLiteral("chart.bmp"))));
    EXPECT_FALSE(GraphOutput::save(chart.get(), folder.filePath(QStringLiteral("no/chart.png"))));
    EXPECT_FALSE(GraphOutput::save(chart.get(), folder.filePath(QStringLiteral("no/chart.pdf"))));
}
