// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RelayLogicTree.h"

#include <QVariant>

namespace lorvane {

/// Where a relay record keeps the state of each logic input: inputs 1 to 21 in bits 0 to 20 of
/// `InputStatus`, 22 to 42 in bits 0 to 20 of `InputStatusB`, and the two added last, 43 and
/// 44, in bits 21 and 22 of `InputStatus` (the first word had room left; the second came later).
class RelayInputBits
{
public:
    enum class Word
    {
        InputStatus,
        InputStatusB,
    };
    struct Place
    {
        Word word = Word::InputStatus;
        int bit = 0;
    };
    static constexpr int maximumInputs = 44;

    /// The word and bit of input `input` (1 to 44); input 1's place for any other number.
    static Place place(int input);
    /// The state of `input` from the two words as read (a null or missing word: Unknown).
    static RelayNodeState state(int input, const QVariant& inputStatus,
                                const QVariant& inputStatusB);
};

} // namespace lorvane
