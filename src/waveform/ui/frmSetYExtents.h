// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QSpinBox;

namespace lorvane {

class YExtentsTarget;

/// Manual y bounds of one chart: two values, a step for the up-down buttons and a lock that
/// moves the other bound the opposite way, widening or narrowing the range about its centre.
/// Every press and every Enter applies at once.
class frmSetYExtents : public QDialog
{
    Q_OBJECT

public:
    explicit frmSetYExtents(YExtentsTarget* chart, QWidget* parent = nullptr);

    QLineEdit* txtMaximum() const { return m_maximum; }
    QLineEdit* txtMinimum() const { return m_minimum; }
    QLineEdit* txtAdjustamount() const { return m_step; }
    QCheckBox* chklocked() const { return m_locked; }

    /// One press of `UpDownMax` (`top` true) or `UpDownMin`, up or down.
    void press(bool top, bool up);
    /// Applies both boxes as they stand; a text that is no number leaves the chart as it is.
    void apply();

private:
    YExtentsTarget* m_chart;
    QLineEdit* m_maximum;
    QLineEdit* m_minimum;
    QLineEdit* m_step;
    QCheckBox* m_locked;
};

} // namespace lorvane
