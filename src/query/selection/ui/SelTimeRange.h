// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/selection/TimeSelection.h"

#include <QDialog>
#include <array>
#include <functional>

class QDateEdit;
class QDateTimeEdit;
class QLineEdit;
class QRadioButton;
class QScrollBar;
class QTimeEdit;

namespace lorvane {

class TopQueryBuffer;
class selDateTime;

/// The time range dialog: between two bounds, or the previous N hours, days, weeks, months
/// or years. TimeSelection checks and keeps the choice; the dialog only collects it.
class SelTimeRange : public QDialog
{
    Q_OBJECT

public:
    /// Opens on the rule of `time` at `now`; `dataBounds` (the first and last day of the open
    /// meters' data, invalid when unknown) limit the pickers and fill them when no range was
    /// stored. `twentyFourHour` chooses the clock of the calendar picker.
    SelTimeRange(TimeSelection& time, TopQueryBuffer& buffer,
                 const TimeSelection::Bounds& dataBounds, const QDateTime& now, bool twentyFourHour,
                 QWidget* parent = nullptr);

    /// OK: hands the checked option to TimeSelection and closes, or shows its refusal and
    /// stays. With no option checked the dialog closes with the rule as it was.
    void OK_Click();
    /// Opens the calendar picker for the start (`endOfRange` false) or end bound and takes
    /// what it returns into the two pickers of that bound.
    void pickDateTime(bool endOfRange);

    /// Opens the calendar picker; tests replace it.
    std::function<bool(selDateTime& picker)> runPicker;

signals:
    /// Help topic asked for ("LRMain").
    void helpRequested(const QString& topic);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QDateTime bound(bool endOfRange) const;
    void setBound(bool endOfRange, const QDateTime& value);

    TimeSelection& m_time;
    TopQueryBuffer& m_buffer;
    bool m_twentyFourHour;
    std::array<QRadioButton*, 6> m_options{};
    std::array<QLineEdit*, 6> m_intervals{};
    /// Index as the pickers are numbered: 0 start time, 1 start date, 2 end time, 3 end date.
    std::array<QDateTimeEdit*, 4> m_pickers{};
};

} // namespace lorvane
