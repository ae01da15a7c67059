// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PGraphItem.h"
#include "PGraphView.h"

#include <QList>
#include <QString>
#include <optional>

namespace lorvane {

/// The state and rules of one power graph window without a screen: the items with their
/// records (held from opening to closing), the view, its entry checks and its steps.
class PGraphSession
{
public:
    /// The most items one graph draws.
    static constexpr int maxItems = 6;

    enum class Direction
    {
        Forward,
        Reverse,
    };

    /// The texts of the window's entry fields, checked on every redraw.
    struct Entries
    {
        QString maxY;
        QString minY;
        QString numDaysView;
        QString start;
    };

    /// `items` in the order chosen (at most `maxItems`; Fault otherwise); the view starts at
    /// midnight of the first record's day.
    PGraphSession(QList<PGraphItem> items, PGraphView view);

    const QList<PGraphItem>& items() const { return m_items; }
    const PGraphView& view() const { return m_view; }
    PGraphView& view() { return m_view; }

    /// "Number of days to view cannot be 0 or less", "... cannot be > 24855", or nothing.
    static std::optional<QString> checkNumDays(double days);
    /// The entries put into the view, or the message of the first refused one: the view then
    /// stays as it was and is not redrawn.
    std::optional<QString> apply(const Entries& entries);
    /// The entry texts of the current view.
    Entries entries() const;

    /// The records of all items ("Total Number of Records").
    qint64 totalRecords() const;
    /// The records of all items inside the current view.
    qint64 recordsInView() const;
    /// The records of `item` inside the current view, in time order.
    QList<PGraphRecord> visible(int item) const;

    /// "Next" (Forward) or "Previous" (Reverse): the start moves by one view, or with "Move by
    /// Sample" to the next or previous record time of any item. False, and the view kept, when
    /// the step would leave no record in the view.
    bool step(Direction direction);

private:
    QList<PGraphItem> m_items;
    PGraphView m_view;
    /// Every record time of every item, ascending, each once: the steps by sample.
    QList<qint64> m_times;
};

} // namespace lorvane
