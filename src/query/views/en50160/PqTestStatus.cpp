// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqTestStatus.h"

#include "platform/UserText.h"

namespace lorvane {

PqTestStatus::Code PqTestStatus::of(const QVariant& stored)
{
    bool ok = false;
    const qlonglong value = stored.isNull() ? 3 : stored.toLongLong(&ok);
    if (!ok)
        return Code::Unknown;
    switch (value) {
    case -1:
        return Code::NotApplicable;
    case 0:
        return Code::Failed;
    case 1:
        return Code::Passed;
    case 2:
        return Code::Concern;
    default:
        return Code::Unknown;
    }
}

QString PqTestStatus::text(Code code)
{
    switch (code) {
    case Code::NotApplicable:
        return userText("610030", "N/A");
    case Code::Failed:
        return userText("610031", "Failed");
    case Code::Passed:
        return userText("610032", "Passed");
    case Code::Concern:
        return userText("610033", "Concern");
    case Code::Unknown:
        break;
    }
    return userText("610034", "Unknown");
}

PqTestStatus::Shade PqTestStatus::shade(Code code)
{
    switch (code) {
    case Code::NotApplicable:
        return Shade::None;
    case Code::Failed:
        return Shade::Red;
    case Code::Passed:
        return Shade::Green;
    case Code::Concern:
        return Shade::Grey;
    case Code::Unknown:
        break;
    }
    return Shade::PlatformGrayText;
}

} // namespace lorvane
