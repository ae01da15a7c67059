// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "trend/MsView.h"
#include "trend/TrendSession.h"

#include <QWidget>

class QComboBox;
class QDateTimeEdit;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace lorvane {

/// The data capture panel (`IDM_TOOLS_DATACAP`): which sets the steps visit, the sample
/// found ("Timestamp", "Value", "Min", "Max"), "< Previous" and "Next >", and the making of
/// a millisecond view from a start time and a number of points or a duration.
class TrendCapturePanel : public QWidget
{
    Q_OBJECT

public:
    explicit TrendCapturePanel(QWidget* parent = nullptr);

    void setSets(const QStringList& names);
    /// -1 for "All Data Sets", else the set in focus.
    int focus() const;
    void showCapture(const TrendSession::Capture& capture);
    /// The millisecond view starts at `ms` (the cursor) unless the user changes it.
    void setStart(double ms);
    MsViewRequest msRequest() const;

    QPushButton* previousButton() const { return m_previous; }
    QPushButton* nextButton() const { return m_next; }
    QPushButton* generateButton() const { return m_generate; }
    QSpinBox* pointsBox() const { return m_points; }
    QSpinBox* durationBox() const { return m_duration; }
    QRadioButton* byDuration() const { return m_byDuration; }
    QLineEdit* timestampBox() const { return m_timestamp; }

signals:
    void stepRequested(bool forward, int focus);
    void generateRequested(const lorvane::MsViewRequest& request);

private:
    QComboBox* m_sets;
    QLineEdit* m_timestamp;
    QLineEdit* m_value;
    QLineEdit* m_min;
    QLineEdit* m_max;
    QPushButton* m_previous;
    QPushButton* m_next;
    QDateTimeEdit* m_start;
    QRadioButton* m_byPoints;
    QRadioButton* m_byDuration;
    QSpinBox* m_points;
    QSpinBox* m_duration;
    QPushButton* m_generate;
};

} // namespace lorvane
