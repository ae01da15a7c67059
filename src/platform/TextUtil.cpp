// SPDX-License-Identifier: GPL-3.0-or-later
#include "TextUtil.h"

namespace lorvane {

QString TextUtil::trimZero(const QString& text)
{
    QString result = text;
    result.replace(QChar(u'\0'), QChar(u' '));
    return result.trimmed();
}

} // namespace lorvane
