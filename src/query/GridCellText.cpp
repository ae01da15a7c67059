// SPDX-License-Identifier: GPL-3.0-or-later
#include "GridCellText.h"

#include "store/DateTimeText.h"
#include "store/StampedTime.h"

#include <QLocale>
#include <stdexcept>

namespace lorvane {

QString GridCellText::stamp(const QVariant& stored, const QVariant& ms)
{
    if (stored.isNull() || !stored.isValid())
        return {};
    try {
        const StampedTime time = StampedTime::fromStoredText(stored.toString(), ms.toDouble());
        const QLocale locale;
        return time.text(DateTimeText(locale).dateTimeFormat(), locale,
                         StampedTime::Fraction::Thousandths);
    } catch (const std::invalid_argument&) {
        return stored.toString();
    }
}

QString GridCellText::value(const QVariant& v)
{
    if (v.isNull() || !v.isValid())
        return {};
    if (v.typeId() == QMetaType::Double) {
        const double d = v.toDouble();
        if (d == static_cast<double>(static_cast<qint64>(d)))
            return QString::number(static_cast<qint64>(d));
        return QString::number(d, 'g', 15);
    }
    return v.toString();
}

} // namespace lorvane
