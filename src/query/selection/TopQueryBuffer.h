// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <array>

namespace lorvane {

/// The last query run from each view button, so that a second press of the same button shows
/// that result again without reading the meter files.
class TopQueryBuffer
{
public:
    static constexpr int buttons = 15;

    struct Row
    {
        qint64 queryIndex = -1; ///< `AllQueries` number of the last query; -1 none
        qint64 subQIndex = -1;  ///< its slice; -1 none
        QDateTime start;        ///< range it ran with; invalid for none
        QDateTime end;
        int flags = 0;
    };

    /// Row of button `button` (0 to 14); throws std::out_of_range outside.
    const Row& row(int button) const { return m_rows.at(static_cast<size_t>(button)); }
    /// Records what a query run from `button` (0 to 14) was; throws std::out_of_range outside.
    void setRow(int button, const Row& row) { m_rows.at(static_cast<size_t>(button)) = row; }
    /// The button's last query may be shown again: its query number is positive.
    bool holds(int button) const { return row(button).queryIndex > 0; }

    /// `ClearTopQueryBuffer`: with `clear` true every row goes back to none; false does nothing.
    void ClearTopQueryBuffer(bool clear);

private:
    std::array<Row, buttons> m_rows{};
};

} // namespace lorvane
