// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace lorvane {

/// An INI text file read and written one key at a time, the way the private profile calls of
/// the installation's sibling programs do it, so that all of them can share one file.
/// Section and key names are compared without regard to case. The file is read afresh on every
/// call: another program may have changed it in between.
///
/// Damaged text is read as far as it can be: lines before the first section header, lines
/// without `=` and comment lines (`;` or `#`) hold no key; a quote without its partner stays part
/// of the value. The file may be UTF-8 (with or without a byte order mark), UTF-16 with a byte
/// order mark, or an 8-bit code page (read as Latin-1), with `\r\n` or `\n` line ends; a write
/// keeps that encoding, the byte order mark and every line it does not change byte for byte.
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

    /// Names of the sections in file order, each once (the first spelling counts); empty when
    /// the file is missing.
    QStringList sectionNames() const;

    /// Names of the keys of `section` in file order, each once; empty when the section or the
    /// file is missing.
    QStringList keyNames(const QString& section) const;

    /// Writes `key=value` into `section`, replacing the first line of that key or adding one at
    /// the end of the section (the section is appended when missing, the file created when
    /// missing). Every other line stays as it was, comments and order included. Returns false,
    /// leaving the file untouched, when it cannot be written, or when a name or the value holds
    /// a line break, or the key is empty or holds `=`, or the section holds `]` (each would
    /// change other keys of the file).
    bool writeString(const QString& section, const QString& key, const QString& value);

private:
    struct Content;

    Content content() const;
    /// Index of the line of `key` in `section`, or -1; `sectionEnd` gets the index after the
    /// section's last non-blank line (-1 when the section is missing).
    static int findKey(const QStringList& lines, const QString& section, const QString& key,
                       int* sectionEnd);

    QString m_path;
};

} // namespace lorvane
