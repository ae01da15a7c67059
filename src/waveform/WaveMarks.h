// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace lorvane {

/// The two time marks of the waveform window and the annotations they make: a vertical line per
/// mark and, with both set, the measured interval between them.
class WaveMarks
{
public:
    /// One annotation: where (ms), the placement code of its text ('H' or 'h' a vertical line
    /// with its text on top, 'l' text that begins at the position, 'r' text that ends there,
    /// 't' and 'b' text above or below a point) and the text shown.
    struct Annotation
    {
        double x = 0;
        QChar placement;
        QString text;

        bool operator==(const Annotation&) const = default;
    };

    /// Places mark `number` (1 or 2) at `x` ms; other numbers are ignored.
    void set(int number, double x);
    void clear();
    bool isSet(int number) const;
    std::optional<double> position(int number) const;
    bool bothSet() const { return m_mark1 && m_mark2; }

    /// |Mark 2 - Mark 1| in ms; nothing unless both are set.
    std::optional<double> duration() const;
    /// "Duration = 12.34ms"; empty unless both are set.
    QString durationText() const;
    /// The annotations to draw, in order: the marks that are set ("Mark 1", "Mark 2"), then with
    /// both set the arrow "<<" at the earlier mark, ">> " at the later one and the duration text
    /// half way, so that the arrows swap sides when Mark 2 lies left of Mark 1.
    QList<Annotation> annotations() const;

    /// Splits a coded annotation text ("|HMark 1") into its placement code and the text shown.
    static Annotation decode(double x, const QString& coded);

private:
    std::optional<double> m_mark1;
    std::optional<double> m_mark2;
};

} // namespace lorvane
