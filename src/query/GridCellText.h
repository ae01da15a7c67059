// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "QueryCatalog.h"

#include <QHash>
#include <QString>
#include <QVariant>

namespace lorvane {

class SqliteDatabase;

/// The texts of the cells that the status log grids share: record stamps, plain values and the
/// meter name of a device index.
class GridCellText
{
public:
    /// Reads the meter names of the query's `LogDevices_{Q}`.
    GridCellText(SqliteDatabase& scratch, const QueryNumbers& numbers);

    /// A stamp as the grids show it: the stored `YYYY-MM-DD HH:MM:SS` in the locale's date and
    /// time format, a point and the thousandths ("000"). Empty for NULL; a text that is no
    /// stamp is shown as it stands.
    static QString stamp(const QVariant& stored, const QVariant& ms);
    /// A value as it stands: whole numbers without a fraction, NULL empty.
    static QString value(const QVariant& v);
    /// The meter name of a device index (from 1); empty when unknown.
    QString deviceName(qint64 deviceIndex) const { return m_names.value(deviceIndex); }

private:
    QHash<qint64, QString> m_names;
};

} // namespace lorvane
