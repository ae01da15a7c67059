// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "trend/TrendView.h"

#include <QWidget>

namespace lorvane {

/// The printed page of a trend tab: "Lorvane Graph", the table of the sets with their
/// largest and smallest value ("0.000"), then the graphs as the screen shows them.
class TrendPrintPage : public QWidget
{
    Q_OBJECT

public:
    TrendPrintPage(const TrendView& view, QWidget* graphs, QWidget* parent = nullptr);
};

} // namespace lorvane
