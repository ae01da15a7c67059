// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphFailure.h"

#include "platform/Fault.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"

namespace lorvane {

QString powerGraphFailure(const std::exception& error)
{
    if (const auto* fault = dynamic_cast<const Fault*>(&error))
        return fault->message();
    if (const auto* storage = dynamic_cast<const StorageError*>(&error))
        return userText("801067", "The records of the power graph could not be read") +
               QStringLiteral(": ") + storage->detail();
    return QString::fromLocal8Bit(error.what());
}

} // namespace lorvane
