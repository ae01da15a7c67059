// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveExportText.h"

#include "platform/LoadProgress.h"
#include "platform/UserText.h"

#include <QStringList>

namespace lorvane {

QString WaveExportText::text(const WaveformChannels& channels, LoadProgress* progress)
{
    constexpr int progressStep = 4096;
    QStringList header{userText("503130", "Sample Point") + QStringLiteral(" #")};
    for (int c = 0; c < WaveformChannels::analogCount; ++c)
        header << channels.labels.at(c);
    for (int input = 1; input <= 8; ++input)
        header << userText("503131", "Input ") + QString::number(input);

    QString out = header.join(u'\t') + u'\n';
    const int count = channels.sampleCount();
    out.reserve(out.size() + count * 96);
    for (int i = 0; i < count; ++i) {
        if (progress && i % progressStep == 0) {
            progress->advance(i, count);
            if (progress->cancelRequested())
                return QString();
        }
        out += QString::number(i);
        for (int c = 0; c < WaveformChannels::analogCount; ++c) {
            out += u'\t';
            out += QString::number(channels.samples.at(c).value(i));
        }
        for (int lane = 0; lane < 8; ++lane) {
            const float stored = channels.samples.at(WaveformChannels::Input1 + lane).value(i);
            out += u'\t';
            // The state is the parity: a lane the capture did not fill holds 0, not its offset.
            out += QString::number(qRound(stored) & 1);
        }
        out += u'\n';
    }
    return out;
}

} // namespace lorvane
