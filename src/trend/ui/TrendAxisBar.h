// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "trend/TrendView.h"

#include <QWidget>
#include <array>

class QLineEdit;
class QPushButton;

namespace lorvane {

/// The row under the graphs: the four value boxes of the Viewport's axes (`valAxisRange`:
/// low and high of the Left Axis and of the Right Axis), "Interval Gap" in "Days", and the
/// colour boxes of the background, grid, texts and values.
class TrendAxisBar : public QWidget
{
    Q_OBJECT

public:
    /// The colour boxes in order.
    enum Colour
    {
        Back,
        Grid,
        Text,
        Value,
    };

    explicit TrendAxisBar(QWidget* parent = nullptr);

    /// The boxes show `view`'s Viewport extents, gap and colours.
    void showView(const TrendView& view);
    /// Box 0 left low, 1 left high, 2 right low, 3 right high.
    QLineEdit* axisBox(int index) const { return m_axis.at(size_t(index)); }
    QLineEdit* gapBox() const { return m_gap; }
    QPushButton* colourBox(Colour which) const { return m_colours.at(size_t(which)); }
    /// "Graph Back Color" ... the dialog title of a colour box.
    static QString colourTitle(Colour which);

signals:
    void axisValueEntered(lorvane::TrendAxis axis, bool high, const QString& text);
    void intervalGapEntered(double days);
    void colourClicked(lorvane::TrendAxisBar::Colour which);

private:
    std::array<QLineEdit*, 4> m_axis{};
    QLineEdit* m_gap;
    std::array<QPushButton*, 4> m_colours{};
};

} // namespace lorvane
