// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>

namespace lorvane {

/// The texts of status and settings cells that need no query: stored values as they stand
/// and record stamps (meter names of a query come from EventCellText).
class GridCellText
{
public:
    /// A stamp as the grids show it: the stored `YYYY-MM-DD HH:MM:SS` in the locale's date and
    /// time format, a point and the thousandths ("000"). Empty for NULL; a text that is no
    /// stamp is shown as it stands.
    static QString stamp(const QVariant& stored, const QVariant& ms);
    /// Whole numbers without a fraction, other reals with up to 15 digits, NULL empty.
    static QString value(const QVariant& v);
};

} // namespace lorvane
