// SPDX-License-Identifier: GPL-3.0-or-later
#include "FaultExitCode.h"

#include "ExitCode.h"
#include "platform/Fault.h"

namespace lorvane::cli {

int exitCodeFor(const Fault& fault)
{
    switch (fault.kind()) {
    case Fault::Kind::FileMissing:
        return FileMissing;
    case Fault::Kind::NotADatabase:
        return NotADatabase;
    case Fault::Kind::Damaged:
        return Damaged;
    case Fault::Kind::Version:
        return VersionFault;
    case Fault::Kind::ReadOnly:
    case Fault::Kind::Other:
        break;
    }
    return Failure;
}

} // namespace lorvane::cli
