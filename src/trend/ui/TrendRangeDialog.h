// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QDialog>

class QDateTimeEdit;

namespace lorvane {

/// "Set Graph Range": the start and end of the Viewport as meter clock readings.
class TrendRangeDialog : public QDialog
{
    Q_OBJECT

public:
    TrendRangeDialog(const QDateTime& start, const QDateTime& end, QWidget* parent = nullptr);

    QDateTime start() const;
    QDateTime end() const;

private:
    QDateTimeEdit* m_start;
    QDateTimeEdit* m_end;
};

} // namespace lorvane
