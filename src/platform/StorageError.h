// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <stdexcept>

namespace lorvane {

/// A failure of the database engine or of a file, with the file's path and the engine's own
/// words kept so that the boundary can compose the user's message and the report.
class StorageError : public std::runtime_error
{
public:
    enum class Kind
    {
        FileMissing,  ///< the file does not exist
        NotADatabase, ///< the file is not a database, or is damaged/truncated
        ReadOnly,     ///< a write was refused because the file or folder is read-only
        Engine,       ///< any other engine error (bad statement, missing table ...)
    };

    StorageError(Kind kind, QString path, QString detail);

    Kind kind() const { return m_kind; }
    const QString& path() const { return m_path; }
    const QString& detail() const { return m_detail; }

private:
    Kind m_kind;
    QString m_path;
    QString m_detail;
};

} // namespace lorvane
