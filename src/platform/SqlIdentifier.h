// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// Quoting of table and column names taken from the schema catalogue. Names hold characters
/// such as `/`, `%`, `#` and blanks, so every name is bracketed: `[Date/Time]`, `[PQ%]`.
/// Values from outside never go through here: they are bound parameters.
class SqlIdentifier
{
public:
    /// `[name]`; a `]` inside the name is doubled as the engine expects.
    static QString quote(const QString& name);
};

} // namespace lorvane
