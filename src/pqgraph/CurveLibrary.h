// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace lorvane {

/// The boundary line files delivered with the program (published envelopes: the ITI curve,
/// SEMI F47, the IEC dip test levels), offered in System Properties beside the user's own.
class CurveLibrary
{
public:
    struct Entry
    {
        /// The file's name without its suffix ("ITIC").
        QString name;
        QString path;
    };
    /// The `.ini` files of `folder` (the program data's `curves`), by name; empty when the
    /// folder is missing.
    static QList<Entry> files(const QString& folder);
};

} // namespace lorvane
