// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "YExtentsTarget.h"
#include "waveform/WaveMarks.h"

#include <QChartView>
#include <QList>
#include <QVector>
#include <functional>
#include <optional>

class QXYSeries;
class QRubberBand;
class QValueAxis;

namespace lorvane {

/// One graph of the waveform window: curves over a time axis in milliseconds, decimated to
/// the pixels drawn, with annotations (marks, trigger, cursor) and a text block drawn on top.
/// A drag asks for a zoom, a click reports its x, a right click asks for the pop-up menu.
class WaveStripChart : public QChartView, public YExtentsTarget
{
    Q_OBJECT

public:
    /// Which axes a drag zooms.
    enum class ZoomMode
    {
        Horizontal,
        Vertical,
        Both,
    };

    explicit WaveStripChart(QWidget* parent = nullptr);

    /// Removes every curve; titles stay.
    void clearCurves();
    /// Adds a curve of samples over `time` (both must outlive the next `clearCurves`).
    /// `points` draws markers of `pointSize` pixels instead of (or with) the line, drawn as
    /// `marker` when one is given.
    void addCurve(const QString& name, const QVector<float>* time, const QVector<float>* values,
                  const QColor& color, Qt::PenStyle style = Qt::SolidLine, qreal width = 1.5,
                  bool line = true, qreal pointSize = 0, const QImage& marker = {});
    void setTitles(const QString& title, const QString& xTitle, const QString& yTitle);
    /// Shows [xMin, xMax]; the curves are thinned again for that range.
    void setXRange(double xMin, double xMax);
    double xMin() const;
    double xMax() const;
    /// Fixed y bounds, or automatic ones from the data with a tenth of the span as margin.
    void setManualY(double bottom, double top) override;
    void setAutomaticY();
    bool manualY() const { return m_manualY; }
    double yMin() const override;
    double yMax() const override;
    void setZoomMode(ZoomMode mode) { m_zoomMode = mode; }
    void setColors(const QColor& foreground, const QColor& background);
    /// Swaps the chart's background and foreground colours.
    void reverseColors();

    void setAnnotations(const QList<WaveMarks::Annotation>& annotations);
    /// A block of text drawn in the top right corner of the plot (empty: none).
    void setTextBlock(const QString& text);
    const QString& textBlock() const { return m_textBlock; }
    const QList<WaveMarks::Annotation>& annotations() const { return m_annotations; }
    /// Where the annotations' texts stood when the strip was last drawn (widget scene
    /// coordinates); no two overlap.
    const QList<QRectF>& annotationTextBoxes() const { return m_textBoxes; }
    /// Number of points the chart holds now, over all curves.
    int pointsShown() const;
    /// Text shown while the pointer rests on a point of a curve at `x` ms.
    void setHoverText(std::function<QString(double x)> text) { m_hoverText = std::move(text); }
    /// Chart x of a widget position.
    double xAt(const QPoint& position) const;

signals:
    void clicked(double x);
    void zoomRequested(double x0, double x1, double y0, double y1);
    void menuRequested(double x, const QPoint& globalPosition);

protected:
    void drawForeground(QPainter* painter, const QRectF& rect) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Curve
    {
        QXYSeries* series = nullptr;
        const QVector<float>* time = nullptr;
        const QVector<float>* values = nullptr;
    };

    void refill();
    void fitY();

    QValueAxis* m_x = nullptr;
    QValueAxis* m_y = nullptr;
    QList<Curve> m_curves;
    QList<WaveMarks::Annotation> m_annotations;
    QList<QRectF> m_textBoxes;
    QString m_textBlock;
    bool m_manualY = false;
    ZoomMode m_zoomMode = ZoomMode::Horizontal;
    QColor m_foreground;
    QColor m_background;
    QRubberBand* m_band = nullptr;
    std::optional<QPoint> m_pressed;
    std::function<QString(double)> m_hoverText;
};

} // namespace lorvane
