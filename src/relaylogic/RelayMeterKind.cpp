// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayMeterKind.h"

#include "platform/UserText.h"

namespace lorvane {

bool RelayMeterKind::accepted(int deviceTypeId)
{
    return deviceTypeId == 0 || deviceTypeId == 3 || newerForm(deviceTypeId);
}

bool RelayMeterKind::newerForm(int deviceTypeId)
{
    return deviceTypeId == 4 || deviceTypeId == 5;
}

int RelayMeterKind::inputCount(int deviceTypeId)
{
    return newerForm(deviceTypeId) ? 44 : 8;
}

QString RelayMeterKind::refusal(int deviceTypeId)
{
    return userText("901001", "Invalid device type #") + QString::number(deviceTypeId) +
           QStringLiteral(", ") +
           userText("901002", "it is not a Halyx 12 Series or Unit 10 Talmo+") +
           QStringLiteral(".");
}

} // namespace lorvane
