// SPDX-License-Identifier: GPL-3.0-or-later
#include "GridCellText.h"

#include "platform/Fault.h"
#include "store/DateTimeText.h"
#include "store/StampedTime.h"

#include <QLocale>

namespace lorvane {

namespace {

/// The locale's date and time format, built again only when the default locale changed: a
/// grid asks for it once per cell.
const QString& dateTimeFormat(const QLocale& locale)
{
    thread_local QString name;
    thread_local QString format;
    if (format.isEmpty() || name != locale.name()) {
        name = locale.name();
        format = DateTimeText(locale).dateTimeFormat();
    }
    return format;
}

} // namespace

QString GridCellText::stamp(const QVariant& stored, const QVariant& ms)
{
    if (stored.isNull() || !stored.isValid())
        return {};
    try {
        const StampedTime time = StampedTime::fromStoredText(stored.toString(), ms.toDouble());
        const QLocale locale;
        return time.text(dateTimeFormat(locale), locale, StampedTime::Fraction::Thousandths);
    } catch (const Fault&) {
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
