// SPDX-License-Identifier: GPL-3.0-or-later
#include "TopQueryBuffer.h"

namespace lorvane {

void TopQueryBuffer::ClearTopQueryBuffer(bool clear)
{
    if (clear)
        m_rows.fill(Row{});
}

} // namespace lorvane
