// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// Small text helpers for values that come from fixed-length buffers and stored paths.
class TextUtil
{
public:
    /// The three parts of a stored path.
    struct PathParts
    {
        QString folder;    ///< up to and including the last `\` or `/`; empty without one
        QString name;      ///< the file name without its extension
        QString extension; ///< from the last "." on, the dot included; "." when there is none
    };

    /// Every NUL character turned into a blank, then the text trimmed: a buffer filled with
    /// NUL characters gives the empty text.
    static QString trimZero(const QString& text);

    /// Splits `path` at its last separator and at the last "." of the file name. A path without
    /// a "." in its file name, or without a folder, gives "." as the extension and its whole
    /// file name as the name, so a caller can test the extension without testing for a dot.
    static PathParts splitPath(const QString& path);
};

} // namespace lorvane
