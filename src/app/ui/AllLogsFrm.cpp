// SPDX-License-Identifier: GPL-3.0-or-later
#include "AllLogsFrm.h"

namespace lorvane {

AllLogsFrm::AllLogsFrm(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("AllLogsFrm"));
    setMinimumSize(480, 320);
}

} // namespace lorvane
