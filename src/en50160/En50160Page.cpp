// SPDX-License-Identifier: GPL-3.0-or-later
#include "En50160Page.h"

namespace lorvane {

QString en50160PageKey(int index)
{
    static const char* const keys[en50160PageCount] = {"FRE", "LSV", "FVF", "FLI", "SVU",
                                                       "HAR", "THD", "VOD", "SIV", "LIV"};
    return index >= 0 && index < en50160PageCount ? QString::fromLatin1(keys[index]) : QString();
}

} // namespace lorvane
