// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WaveCompositionItem.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

namespace lorvane {

/// The right-hand list of the composition set-up: at most six channels to draw together.
class WaveCompositionList
{
public:
    static constexpr int maximumItems = 6;

    /// Adds `item` as a whole capture, or with `useSelectedWindow` as the section
    /// [start, end] ms (-1 when no stretch is chosen). Returns the message to show, or an empty
    /// text when added. Nothing is added with no item (`item` null) or six items present.
    QString add(const WaveCompositionItem* item, bool useSelectedWindow, double start, double end);
    /// Removes row `row`; false when there is none.
    bool remove(int row);
    /// The message "Nothing to graph." for an empty list, else an empty text.
    QString graphMessage() const;

    const QList<WaveCompositionItem>& items() const { return m_items; }

    /// Grid texts of a row: "Input", "Group Index", "Item Index", "Date/Time", "Device", "Item",
    /// "Type", "Duration(ms)".
    static QStringList cells(const WaveCompositionItem& item);
    /// The column titles of those cells.
    static QStringList columnTitles();
    /// "From 1.00 ms to 5.00 ms, duration = 4.00 ms." for a section, "date, item" for a whole
    /// capture.
    static QString description(const WaveCompositionItem& item);
    /// Legend of an item's curve: the trigger time with its tenths of ms ("12:00:00.1234") and
    /// the item name.
    static QString legend(const WaveCompositionItem& item);
    /// `count` axis values of an item: sample i at i / frequency / rate seconds, in
    /// milliseconds rounded to three decimals; all 0 for a rate below 1.
    static QVector<float> timeAxis(int frequency, int sampleRate, int count);

private:
    QList<WaveCompositionItem> m_items;
};

} // namespace lorvane
