// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "powergraph/PGraphSession.h"

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;

namespace lorvane {

/// The commands and entry fields of a power graph beside its picture: the check boxes, the
/// stepping and Auto Show controls, the view's entries and the record count of the view.
class PGraphPanel : public QWidget
{
    Q_OBJECT

public:
    explicit PGraphPanel(QWidget* parent = nullptr);

    /// The entry texts as typed.
    PGraphSession::Entries entries() const;
    void setEntries(const PGraphSession::Entries& entries);
    void setRecords(qint64 count);

    QCheckBox* moveBySample = nullptr;
    QCheckBox* colorPrintout = nullptr;
    QCheckBox* useSymbols = nullptr;
    QCheckBox* autoShow = nullptr;
    QCheckBox* saveSettings = nullptr;
    QPushButton* redraw = nullptr;
    QPushButton* print = nullptr;
    QPushButton* close = nullptr;
    QPushButton* previous = nullptr;
    QPushButton* next = nullptr;
    QRadioButton* reverse = nullptr;
    QRadioButton* forward = nullptr;
    QSlider* speed = nullptr;
    QLineEdit* maxY = nullptr;
    QLineEdit* minY = nullptr;
    QLineEdit* numDays = nullptr;
    QLineEdit* start = nullptr;
    QLineEdit* records = nullptr;
};

} // namespace lorvane
