// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The texts the user is shown about a meter file, composed in one place from their parts.
class MeterMessages
{
public:
    /// "This database is damaged. Table:  {table}\nDatabase: {database}"
    static QString damaged(const QString& table, const QString& database);
    /// "{name} file attribute is read-only."
    static QString readOnlyAttribute(const QString& name);
    static QString fileMissing(const QString& path);
    static QString notADatabase(const QString& path);
    /// The general handler's report of an engine failure: step, path and the engine's words.
    static QString engineFailure(const QString& step, const QString& path, const QString& detail);
};

} // namespace lorvane
