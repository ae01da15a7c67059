// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// Paths as the installation's shared files store them: written on one system with `\`, on
/// another with `/`, and with names whose case the program and the file system may not agree
/// on ("sysimage" against "SysImage"). These helpers let the rest of the code read them either
/// way.
class StoredPath
{
public:
    static bool isSeparator(QChar c) { return c == u'\\' || c == u'/'; }
    /// True when the text ends in `\` or `/`.
    static bool endsWithSeparator(const QString& path);
    /// Position of the last `\` or `/`, or -1.
    static qsizetype lastSeparator(const QString& path);
    /// The path with every `\` turned into `/`, the separator of this system.
    static QString toLocal(const QString& path);
    /// `folder` (with or without a final separator) joined with `name`; when the folder holds an
    /// entry whose name differs from `name` only in case, that entry's spelling is used.
    static QString child(const QString& folder, const QString& name);
};

} // namespace lorvane
