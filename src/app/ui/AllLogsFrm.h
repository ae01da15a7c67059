// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace lorvane {

/// The selection window: the open meters, their logs, the data points and the time range
/// that a view is made of. It lives inside the main frame for the whole run; closing it only
/// hides it.
class AllLogsFrm : public QWidget
{
    Q_OBJECT

public:
    explicit AllLogsFrm(QWidget* parent = nullptr);
};

} // namespace lorvane
