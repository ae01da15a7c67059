// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LoadProgress.h"

#include <QList>
#include <QStringList>

namespace lorvane {

/// Progress that keeps what the work told it: its texts and its fractions (-1 for unknown).
class RecordingProgress : public LoadProgress
{
public:
    void status(const QString& text) override { texts << text; }
    QStringList texts;
    QList<double> fractions;

protected:
    void showFraction(std::optional<double> fraction) override
    {
        fractions << fraction.value_or(-1);
    }
};

} // namespace lorvane
