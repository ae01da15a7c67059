// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/ViewResult.h"

namespace lorvane {

struct QueryContext;

/// The EN 50160 view of the log grid (kind 76): the test list of the used meters over the
/// range, one page. It makes no query of the catalogue: the list lives in the scratch tables
/// of the compliance listing, which every load renews.
class En50160View
{
public:
    static ViewResult run(QueryContext& context);
    /// The grid again from the scratch tables, as the last listing left them.
    static QList<GridTable> grids(QueryContext& context, const QueryNumbers& numbers);
};

} // namespace lorvane
