// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ViewResult.h"

namespace lorvane {

struct QueryContext;

/// The system event view (log kind 11): "Show System Events".
class SystemEventView
{
public:
    /// One fresh query over the context's files and range, sorted by the context's sort item
    /// and direction. Throws StorageError when a statement fails, Fault for an unknown sort
    /// item.
    static ViewResult run(QueryContext& context);
};

} // namespace lorvane
