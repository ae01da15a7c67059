// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayInputBits.h"

namespace lorvane {

RelayInputBits::Place RelayInputBits::place(int input)
{
    if (input >= 22 && input <= 42)
        return {Word::InputStatusB, input - 22};
    if (input == 43 || input == 44)
        return {Word::InputStatus, input - 22};
    if (input >= 1 && input <= 21)
        return {Word::InputStatus, input - 1};
    return {};
}

RelayNodeState RelayInputBits::state(int input, const QVariant& inputStatus,
                                     const QVariant& inputStatusB)
{
    const Place where = place(input);
    const QVariant& word = where.word == Word::InputStatus ? inputStatus : inputStatusB;
    if (!word.isValid() || word.isNull())
        return RelayNodeState::Unknown;
    bool number = false;
    const qint64 bits = word.toLongLong(&number);
    if (!number)
        return RelayNodeState::Unknown;
    // The words are 32-bit on the meter; the highest bit used is 22.
    const qint64 mask = qint64(1) << where.bit;
    return (bits & mask) != 0 ? RelayNodeState::Active : RelayNodeState::Inactive;
}

} // namespace lorvane
