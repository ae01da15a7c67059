// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PGraphItem.h"

#include <QList>
#include <QString>

namespace lorvane {

/// The records of a power graph as CSV text (the window's "Export Data" and the command
/// line): a heading, then one line per record of each item in item order, the value with
/// every digit the record holds.
class PGraphExport
{
public:
    static QString csv(const QList<PGraphItem>& items);
};

} // namespace lorvane
