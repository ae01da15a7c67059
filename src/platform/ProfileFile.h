// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace lorvane {

/// An INI text file read and written one key at a time, the way the private profile calls of
/// the installation's sibling programs do it, so that all of them can share one file.
/// Section and key names are compared without regard to case. The file is read afresh on every
/// call: another program may have changed it in between.
class ProfileFile
{
public:
    /// Buffer of the profile calls when the caller names none, in characters (terminator
    /// included, so at most 254 characters come back).
    static constexpr int defaultBufferSize = 255;

    explicit ProfileFile(QString path);

    const QString& path() const { return m_path; }

    /// Value of `key` in `section`, blanks around it removed and one pair of matching quotes
    /// around it dropped; `defaultValue` when the file, the section or the key is missing.
    /// The result is cut to `bufferSize - 1` characters (a size below 1 gives an empty text).
    QString readString(const QString& section, const QString& key, const QString& defaultValue,
                       int bufferSize = defaultBufferSize) const;

    /// True when the file holds `key` in `section` (an empty value counts).
    bool hasKey(const QString& section, const QString& key) const;

    /// Writes `key=value` into `section`, replacing the first line of that key or adding one at
    /// the end of the section (the section is appended when missing, the file created when
    /// missing). Every other line stays as it was, comments and order included. Returns false,
    /// leaving the file untouched, when it cannot be written.
    bool writeString(const QString& section, const QString& key, const QString& value);

private:
    QStringList lines(bool* exists = nullptr) const;
    /// Index of the line of `key` in `section`, or -1; `sectionEnd` gets the index after the
    /// section's last non-blank line (-1 when the section is missing).
    static int findKey(const QStringList& lines, const QString& section, const QString& key,
                       int* sectionEnd);

    QString m_path;
};

} // namespace lorvane
