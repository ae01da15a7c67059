// SPDX-License-Identifier: GPL-3.0-or-later
#include "SampleText.h"

#include <QByteArray>

namespace lorvane::sim {

QString SampleText::join(const QList<double>& values, int decimals)
{
    // QByteArray::number ignores the process locale (a program with a German locale would
    // otherwise write decimal commas).
    QByteArray text;
    text.reserve(values.size() * (decimals + 6));
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (i > 0)
            text += '\r';
        text += QByteArray::number(values.at(i), 'f', decimals);
    }
    return QString::fromLatin1(text);
}

} // namespace lorvane::sim
