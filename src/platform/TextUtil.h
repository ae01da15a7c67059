// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// Small text helpers for values that come from fixed-length buffers.
class TextUtil
{
public:
    /// Every NUL character turned into a blank, then the text trimmed: a buffer filled with
    /// NUL characters gives the empty text.
    static QString trimZero(const QString& text);
};

} // namespace lorvane
