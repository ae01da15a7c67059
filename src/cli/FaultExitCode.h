// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane {
class Fault;
class StorageError;
} // namespace lorvane

namespace lorvane::cli {

/// The exit code that tells scripts which kind of fault ended a command.
int exitCodeFor(const Fault& fault);
/// The same for an engine or file error that reached the command's boundary.
int exitCodeFor(const StorageError& error);

} // namespace lorvane::cli
