// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

namespace lorvane {
class Fault;
}

namespace lorvane::cli {

/// Runs one command of lorvane-cli and turns whatever it throws into a message on standard
/// error and a non-zero exit code: a fault with its step and file, an engine error with its
/// file and words, anything else as a failure of the command. Nothing escapes to abort the
/// program.
int runAtBoundary(const QString& command, const std::function<int()>& body);

/// Throws `fault` again, naming `files` when it names no file itself (a time stamp that does
/// not read knows only its text; the command knows which files it was reading).
[[noreturn]] void rethrowNaming(const Fault& fault, const QString& files);

} // namespace lorvane::cli
