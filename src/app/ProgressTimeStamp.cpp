// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProgressTimeStamp.h"

namespace lorvane {

QString ProgressTimeStamp::text(qint64 elapsedMs)
{
    const qint64 minutes = elapsedMs / 60000;
    const qint64 seconds = (elapsedMs % 60000) / 1000;
    const qint64 milliseconds = elapsedMs % 1000;
    return QStringLiteral("(%1:%2:%3) ")
        .arg(minutes, 2, 10, QChar(u'0'))
        .arg(seconds, 2, 10, QChar(u'0'))
        .arg(milliseconds, 3, 10, QChar(u'0'));
}

} // namespace lorvane
