// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QDialog>

class QCalendarWidget;
class QLabel;
class QSlider;

namespace lorvane {

/// The calendar and time picker of a range bound: a calendar for the date and a slider of the
/// minutes of the day (0 to 1439).
class selDateTime : public QDialog
{
    Q_OBJECT

public:
    /// A picker for the start (`endOfRange` false) or the end of a range; the slider's end
    /// labels follow a 12-hour or a 24-hour clock.
    selDateTime(bool endOfRange, bool twentyFourHour, QWidget* parent = nullptr);

    /// Shows `value`; an invalid one leaves the time unset ("00:00").
    void setDateTime(const QDateTime& value);
    /// Limits the dates the calendar offers; invalid bounds leave it open.
    void setDateRange(const QDate& first, const QDate& last);
    /// The date and minute picked.
    QDateTime dateTime() const;
    /// "OK": closes with the picked date/time, or says "Invalid date/time." and stays when the
    /// date lies outside the offered range or the local clock has no such time.
    void OK_Click();
    /// Minute of the day on the slider.
    void setMinuteOfDay(int minute);

private:
    void showTime();

    bool m_twentyFourHour;
    bool m_timeSet = false;
    QCalendarWidget* m_calendar = nullptr;
    QSlider* m_slider = nullptr;
    QLabel* m_time = nullptr;
};

} // namespace lorvane
