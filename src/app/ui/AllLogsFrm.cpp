// SPDX-License-Identifier: GPL-3.0-or-later
#include "AllLogsFrm.h"

#include "app/RunContext.h"

namespace lorvane {

AllLogsFrm::AllLogsFrm(RunContext& context, QWidget* parent) : QWidget(parent), m_context(context)
{
    setObjectName(QStringLiteral("AllLogsFrm"));
    setMinimumSize(480, 320);
}

AllLogsFrm::~AllLogsFrm() = default;

} // namespace lorvane
