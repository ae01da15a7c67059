// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <exception>

namespace lorvane {

/// The words a power graph window shows for a failure that reached its boundary: a fault's
/// own message, a storage error with the table reading that failed and the engine's words.
QString powerGraphFailure(const std::exception& error);

} // namespace lorvane
