// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace lorvane {

/// The base of windows that draw their own picture with the painter (the relay logic tree,
/// the circular and XY power graphs): the picture is drawn by one function for the screen and
/// for every output (PNG, SVG, PDF, printer, clipboard through GraphOutput), so what is printed
/// is what is shown, only larger.
class PictureCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit PictureCanvas(QWidget* parent = nullptr);

    /// The paper colour behind the picture.
    void setBackground(const QColor& color);
    const QColor& background() const { return m_background; }

protected:
    /// Draws the picture into `area`, the widget's rectangle; output scales the painter.
    virtual void paintPicture(QPainter& painter, const QRectF& area) = 0;
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_background = Qt::white;
};

} // namespace lorvane
