// SPDX-License-Identifier: GPL-3.0-or-later
#include "RunContext.h"

#include "platform/SqliteDatabase.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

RunContext::RunContext() = default;

// Defined here, where the held database classes are complete.
RunContext::~RunContext() = default;

void RunContext::shutDown()
{
    dictionary.reset();
    if (scratch) {
        scratch->closeAndDelete();
        scratch.reset();
    }
}

} // namespace lorvane
