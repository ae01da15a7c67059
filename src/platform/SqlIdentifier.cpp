// SPDX-License-Identifier: GPL-3.0-or-later
#include "SqlIdentifier.h"

namespace lorvane {

QString SqlIdentifier::quote(const QString& name)
{
    QString escaped = name;
    escaped.replace(QLatin1Char(']'), QLatin1String("]]"));
    return QLatin1Char('[') + escaped + QLatin1Char(']');
}

} // namespace lorvane
