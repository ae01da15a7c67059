// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane {
class Fault;
}

namespace lorvane::cli {

/// The exit code that tells scripts which kind of fault ended a command.
int exitCodeFor(const Fault& fault);

} // namespace lorvane::cli
