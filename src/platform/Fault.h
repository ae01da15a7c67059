// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <stdexcept>

namespace lorvane {

/// A failure as the user is told it: the system's message, and the running step and file
/// path kept for the report ("{step} - {path}").
class Fault : public std::runtime_error
{
public:
    enum class Kind
    {
        FileMissing,
        NotADatabase,
        Damaged,
        ReadOnly,
        Version,
        Other,
    };

    Fault(Kind kind, QString message, QString step, QString path);

    Kind kind() const { return m_kind; }
    const QString& message() const { return m_message; }
    const QString& step() const { return m_step; }
    const QString& path() const { return m_path; }
    /// "{step} - {path}", the text kept for error reports.
    QString report() const;

private:
    Kind m_kind;
    QString m_message;
    QString m_step;
    QString m_path;
};

} // namespace lorvane
