// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/StampedTime.h"

#include "platform/Fault.h"
#include "store/DateTimeText.h"

#include <QLocale>
#include <gtest/gtest.h>

using namespace lorvane;
using Fraction = StampedTime::Fraction;

TEST(StampedTime, StoredTextRoundTripsAndBadTextIsRefused)
{
    for (const char* text : {"2024-03-01 00:00:00", "2024-02-29 23:59:59", "1999-12-31 07:05:09",
                             "2024-10-27 02:30:00"}) {
        const StampedTime stamp = StampedTime::fromStoredText(QLatin1String(text), 7, 1);
        EXPECT_EQ(stamp.storedText(), QLatin1String(text));
        EXPECT_EQ(stamp.ms(), 7);
        EXPECT_EQ(stamp.mode(), 1);
    }
    // Kept to the second: a fraction in the clock time belongs to ms and is dropped.
    const QDateTime withFraction(QDate(2024, 3, 1), QTime(7, 5, 9, 640), Qt::UTC);
    EXPECT_EQ(StampedTime(withFraction, 640, 0).storedText(),
              QStringLiteral("2024-03-01 07:05:09"));

    for (const char* bad : {"", "2024-3-1 07:05:09", "2024-03-01T07:05:09", "2024-03-01 07:05",
                            "2024-03-01 07:05:09.5", " 2024-03-01 07:05:09", "2023-02-29 00:00:00",
                            "2024-13-01 00:00:00", "2024-03-01 24:00:00", "2024-03-01 12:60:00",
                            "03/01/2024 07:05:09", "2024-03-01 07:05:09+01"}) {
        try {
            StampedTime::fromStoredText(QLatin1String(bad));
            ADD_FAILURE() << "accepted: " << bad;
        } catch (const Fault& fault) {
            // A stamp that does not read is a damaged file, not a crash of the reader.
            EXPECT_EQ(fault.kind(), Fault::Kind::Damaged);
            EXPECT_TRUE(fault.message().startsWith(QStringLiteral("This database is damaged")));
            EXPECT_TRUE(fault.message().contains(u'"' + QLatin1String(bad) + u'"'))
                << fault.message().toStdString();
        }
    }
    EXPECT_FALSE(StampedTime().isValid());
    EXPECT_EQ(StampedTime().storedText(), QString());
}

TEST(StampedTime, BothFractionScales)
{
    EXPECT_EQ(StampedTime::fractionText(0, Fraction::Thousandths), QStringLiteral("000"));
    EXPECT_EQ(StampedTime::fractionText(7, Fraction::Thousandths), QStringLiteral("007"));
    EXPECT_EQ(StampedTime::fractionText(999, Fraction::Thousandths), QStringLiteral("999"));
    EXPECT_EQ(StampedTime::fractionText(1500, Fraction::Thousandths), QStringLiteral("1500"));
    EXPECT_EQ(StampedTime::fractionText(-5, Fraction::Thousandths), QStringLiteral("-005"));

    EXPECT_EQ(StampedTime::fractionText(12.3, Fraction::TenthMilliseconds), QStringLiteral("0123"));
    EXPECT_EQ(StampedTime::fractionText(0, Fraction::TenthMilliseconds), QStringLiteral("0000"));
    EXPECT_EQ(StampedTime::fractionText(999.9, Fraction::TenthMilliseconds),
              QStringLiteral("9999"));
    // 0.1 x 10 is not exactly 1 in binary; rounding must still give the tenth.
    EXPECT_EQ(StampedTime::fractionText(0.1, Fraction::TenthMilliseconds), QStringLiteral("0001"));
    EXPECT_EQ(StampedTime::fractionText(4.06, Fraction::TenthMilliseconds), QStringLiteral("0041"));
    // An INTEGER column of an older file reads through the same scale.
    EXPECT_EQ(StampedTime::fractionText(12, Fraction::TenthMilliseconds), QStringLiteral("0120"));

    const StampedTime pq =
        StampedTime::fromStoredText(QStringLiteral("2024-03-01 14:05:07"), 12.3, 0);
    EXPECT_EQ(
        pq.text(QStringLiteral("yyyy-MM-dd HH:mm:ss"), QLocale::c(), Fraction::TenthMilliseconds),
        QStringLiteral("2024-03-01 14:05:07.0123"));
}

TEST(StampedTime, DoubledHourKeepsBothReadings)
{
    // At the end of summer time the meter logs 02:30 twice: first in mode 1, then in mode 0.
    const StampedTime summer =
        StampedTime::fromStoredText(QStringLiteral("2024-10-27 02:30:00"), 0, 1);
    const StampedTime winter =
        StampedTime::fromStoredText(QStringLiteral("2024-10-27 02:30:00"), 0, 0);
    const StampedTime later =
        StampedTime::fromStoredText(QStringLiteral("2024-10-27 02:30:00"), 1, 1);
    EXPECT_FALSE(summer == winter);
    EXPECT_EQ(summer.storedText(), winter.storedText());
    EXPECT_EQ(summer.mode(), 1);
    EXPECT_EQ(winter.mode(), 0);
    // Neither is moved by an hour: this machine's zone has no say.
    EXPECT_EQ(summer.clock().time(), QTime(2, 30));
    EXPECT_TRUE(winter < summer);
    EXPECT_TRUE(summer < later); // the fraction orders before the mode
    EXPECT_TRUE(winter < later);

    // The same clock reading in a zone's spring gap is a real meter stamp, not an error.
    const StampedTime gap = StampedTime::fromStoredText(QStringLiteral("2024-03-31 02:30:00"));
    EXPECT_EQ(gap.storedText(), QStringLiteral("2024-03-31 02:30:00"));
}

TEST(DateTimeText, LocaleForms)
{
    const QDateTime afternoon(QDate(2024, 3, 1), QTime(14, 5, 7), Qt::UTC);
    const QDateTime morning(QDate(2024, 3, 1), QTime(9, 5, 7), Qt::UTC);

    const DateTimeText c(QLocale::c());
    EXPECT_FALSE(c.isTwelveHour());
    EXPECT_EQ(c.amPmSuffix(), QString());
    EXPECT_EQ(c.timeFormat(), QStringLiteral("HH:mm:ss")); // no zone
    EXPECT_EQ(c.statementTimeFormat(), c.timeFormat());
    EXPECT_EQ(c.minutesFormat(), QStringLiteral("HH:mm"));
    EXPECT_EQ(c.dateTimeText(afternoon), QStringLiteral("1 Mar 2024 14:05:07"));

    const DateTimeText german(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_FALSE(german.isTwelveHour());
    EXPECT_EQ(german.shortDateFormat(), QStringLiteral("dd.MM.yy"));
    EXPECT_EQ(german.dateTimeFormat(), QStringLiteral("dd.MM.yy HH:mm:ss"));
    EXPECT_EQ(german.dateTimeMinutesFormat(), QStringLiteral("dd.MM.yy HH:mm"));
    EXPECT_EQ(german.dateTimeText(afternoon), QStringLiteral("01.03.24 14:05:07"));
    EXPECT_EQ(german.statementText(afternoon), QStringLiteral("01.03.24 14:05:07"));
    const StampedTime stamp(afternoon, 7, 0);
    EXPECT_EQ(stamp.text(german.dateTimeFormat(), german.locale(), Fraction::Thousandths),
              QStringLiteral("01.03.24 14:05:07.007"));

    const DateTimeText us(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_TRUE(us.isTwelveHour());
    EXPECT_EQ(us.amPmSuffix(), QStringLiteral(" AMPM"));
    EXPECT_EQ(us.clockFormat(), QStringLiteral("h:mm:ss"));
    EXPECT_EQ(us.minutesFormat(), QStringLiteral("h:mm"));
    EXPECT_EQ(us.statementTimeFormat(), QStringLiteral("h:mm:ss AM/PM"));
    EXPECT_EQ(us.statementDateTimeFormat(), QStringLiteral("M/d/yy h:mm:ss AM/PM"));
    EXPECT_EQ(us.statementText(afternoon), QStringLiteral("3/1/24 2:05:07 PM"));
    EXPECT_EQ(us.statementText(morning), QStringLiteral("3/1/24 9:05:07 AM"));

    // A locale whose marker comes first and is not "AM"/"PM": statements still say PM.
    const DateTimeText korean(QLocale(QLocale::Korean, QLocale::SouthKorea));
    EXPECT_TRUE(korean.isTwelveHour());
    EXPECT_TRUE(korean.statementText(afternoon).contains(QStringLiteral("PM")));
    EXPECT_FALSE(korean.statementText(afternoon).contains(QLocale(QLocale::Korean).pmText()));
    EXPECT_FALSE(korean.clockFormat().contains(u'A'));

    EXPECT_EQ(us.dateTimeText(QDateTime()), QString());
}
