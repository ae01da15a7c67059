// SPDX-License-Identifier: GPL-3.0-or-later
#include "FaultExitCode.h"

#include "ExitCode.h"
#include "platform/Fault.h"
#include "platform/StorageError.h"

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

int exitCodeFor(const StorageError& error)
{
    switch (error.kind()) {
    case StorageError::Kind::FileMissing:
        return FileMissing;
    case StorageError::Kind::NotADatabase:
        return NotADatabase;
    case StorageError::Kind::ReadOnly:
    case StorageError::Kind::Engine:
        break;
    }
    return Failure;
}

} // namespace lorvane::cli
