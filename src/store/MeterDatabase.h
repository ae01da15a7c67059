// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SqliteDatabase.h"

#include <QString>
#include <memory>

namespace lorvane {

/// One meter log database opened for the length of one check or copy. Opening is read-only:
/// nothing but the schema upgrade ever writes a meter file.
class MeterDatabase
{
public:
    /// Opens `path` read-only. Throws Fault: FileMissing, NotADatabase (a foreign, truncated
    /// or damaged file), with the system's message, the step `step` and the path.
    explicit MeterDatabase(const QString& path, const QString& step = QStringLiteral("OpenDB"));

    SqliteDatabase& db() { return *m_db; }
    const QString& path() const { return m_path; }
    /// File name without folder.
    QString fileName() const;
    /// The file bears the read-only mark: its owner may not write it.
    bool readOnlyAttribute() const;

    /// `Version` of the first row of `ID_Table`; -1 when the table has no row.
    double version();
    /// `Note` of the first row of `ID_Table`; empty when there is none.
    QString note();

    /// Runs `work` and turns any engine failure into the Fault the user sees.
    template <typename Work> auto guarded(const QString& step, Work&& work)
    {
        try {
            return work();
        } catch (const std::exception& e) {
            rethrow(step, e);
        }
    }

    /// The Fault for an engine failure during `step` on this file.
    [[noreturn]] void rethrow(const QString& step, const std::exception& e) const;
    /// The Fault the user sees for any failure during `step` on the file at `path`: a Fault
    /// passes as it is, a StorageError gets the message of its kind.
    [[noreturn]] static void rethrow(const QString& step, const QString& path,
                                     const std::exception& e);

private:
    QString m_path;
    std::unique_ptr<SqliteDatabase> m_db;
};

} // namespace lorvane
