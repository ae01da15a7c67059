// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace lorvane {

/// The time of one record as the meter stamped it: a clock time to the second, the fraction of
/// that second, and the daylight saving mode the meter marked it with (`DTmode`, 0 or 1).
///
/// The clock time is meter local time with no zone. It is held in a QDateTime tagged UTC only
/// so that no rule of this machine's zone shifts it or rejects it: in the doubled hour at the
/// end of summer time the same clock reading occurs twice, told apart by the mode alone, and
/// nothing here ever converts between the two.
class StampedTime
{
public:
    /// How the fraction column counts and how its text is made.
    enum class Fraction
    {
        Thousandths,      ///< snapshot, limit, input, relay, flicker, event rows: "000"
        TenthMilliseconds ///< PQ and waveform rows: milliseconds with a tenth, ms x 10, "0000"
    };

    /// Length of the stored text form `YYYY-MM-DD HH:MM:SS`.
    static constexpr int storedTextLength = 19;

    /// An invalid stamp (no clock time).
    StampedTime() = default;
    /// `clock` is taken to the second (a fraction of a second in it is dropped: it belongs in
    /// `ms`); `ms` in milliseconds, `mode` as the meter wrote it.
    StampedTime(const QDateTime& clock, double ms, int mode);

    /// Reads the stored text form. Throws Fault Damaged (step "StampedTime") naming the text
    /// when it is not exactly `YYYY-MM-DD HH:MM:SS` or names no real date or time (2023-02-29,
    /// 24:00:00): such a stamp is a damaged file, and the reader that knows the file adds it.
    static StampedTime fromStoredText(const QString& text, double ms = 0.0, int mode = 0);
    /// The clock time of a stored text, with the same checks and error as `fromStoredText`.
    static QDateTime parseClock(const QString& text);
    /// `YYYY-MM-DD HH:MM:SS` of a clock time; empty for an invalid one.
    static QString storedText(const QDateTime& clock);

    bool isValid() const { return m_clock.isValid(); }
    const QDateTime& clock() const { return m_clock; }
    double ms() const { return m_ms; }
    int mode() const { return m_mode; }
    /// The clock time as stored (`YYYY-MM-DD HH:MM:SS`); empty for an invalid stamp.
    QString storedText() const { return storedText(m_clock); }

    /// The fraction's text: thousandths rounded to a whole and shown with at least three
    /// digits ("007"); tenths of a millisecond as ms x 10 rounded, at least four digits
    /// (12.3 gives "0123"). A negative fraction keeps its sign before the digits.
    static QString fractionText(double ms, Fraction scale);
    QString fractionText(Fraction scale) const { return fractionText(m_ms, scale); }

    /// The stamp as one text: the clock time in `format` (Qt's date-time format syntax,
    /// rendered in `locale`), a point and the fraction, as the grids show it.
    QString text(const QString& format, const QLocale& locale, Fraction scale) const;

    /// Same clock time, fraction and mode: the two readings of the doubled hour differ.
    bool operator==(const StampedTime& other) const;
    /// Record order: clock time, then fraction, then mode; the mode only decides between two
    /// stamps that are otherwise equal.
    bool operator<(const StampedTime& other) const;

private:
    QDateTime m_clock;
    double m_ms = 0.0;
    int m_mode = 0;
};

} // namespace lorvane
