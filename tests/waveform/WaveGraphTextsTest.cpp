// SPDX-License-Identifier: GPL-3.0-or-later
// Texts the waveform window writes on its graphs, and the sample table for the clipboard.
#include "waveform/WaveGraphTexts.h"

#include "support/RecordingProgress.h"
#include "waveform/WaveExportText.h"

#include <gtest/gtest.h>

using namespace lorvane;

TEST(WaveGraphTexts, TitlesAnnotationsAndHoverTexts)
{
    EXPECT_EQ(WaveGraphTexts::axisTitle(2, 60), QStringLiteral("Volts"));
    EXPECT_EQ(WaveGraphTexts::axisTitle(6, 50),
              QStringLiteral("Current (Displaying for 50 Hz system)"));
    EXPECT_EQ(WaveGraphTexts::axisTitle(9, 50), QStringLiteral("Inputs"));
    WaveformRecord r;
    r.triggeredBy = QStringLiteral("Van Sag");
    EXPECT_EQ(WaveGraphTexts::triggerText(r), QStringLiteral("|hTrigger"));
    r.triggeredBy = QStringLiteral("Time Mark");
    EXPECT_EQ(WaveGraphTexts::triggerText(r), QStringLiteral("|hTime Mark"));
    // 3 counts of 18.18 ns are 54.54 ns, shown without decimals.
    EXPECT_EQ(WaveGraphTexts::transientText(true, 412.5, 3),
              QStringLiteral("|tPositive 412.50, Duration: 55 nanoseconds"));
    EXPECT_EQ(WaveGraphTexts::transientText(false, -80, 1),
              QStringLiteral("|bNegative -80.00, Duration: 18 nanoseconds"));
    EXPECT_EQ(WaveGraphTexts::pointHoverText(12.5, -4.16666),
              QStringLiteral("@12.50 Duration = -4.167 ms"));
    EXPECT_EQ(WaveGraphTexts::harmonicHoverText(5, 4.004), QStringLiteral(", Harmonic 5 4.00%"));
    EXPECT_EQ(WaveGraphTexts::overlayName(0, QStringLiteral("Van")), QStringLiteral("V an"));
    EXPECT_EQ(WaveGraphTexts::overlayName(1, QStringLiteral("Vbc")), QStringLiteral("V bc"));
    EXPECT_EQ(WaveGraphTexts::overlayName(4, QStringLiteral("Ib (reconstructed)")),
              QStringLiteral("I b"));
    EXPECT_EQ(WaveGraphTexts::overlayName(6, QStringLiteral("In-N/A")), QStringLiteral("I N"));
}

TEST(WaveExportText, HeaderLabelsAndInputStates)
{
    WaveformChannels channels;
    channels.resize(3);
    const QStringList labels{"Van", "Vbn", "Vcn", "Ia", "Ib", "Ic", "In-N/A"};
    for (int c = 0; c < 7; ++c)
        channels.labels[c] = labels.at(c);
    channels.samples[0] = {1.5F, -2.25F, 0.0F};
    channels.samples[WaveformChannels::Input1 + 7] = {14.0F, 15.0F, 14.0F};
    const QString text = WaveExportText::text(channels);
    const QStringList lines = text.split(u'\n');
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines[0], QStringLiteral("Sample Point #\tVan\tVbn\tVcn\tIa\tIb\tIc\tIn-N/A\tInput "
                                       "1\tInput 2\tInput 3\tInput 4\tInput 5\tInput 6\tInput "
                                       "7\tInput 8"));
    EXPECT_EQ(lines[2], QStringLiteral("1\t-2.25\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t1"));
    EXPECT_TRUE(lines[4].isEmpty());

    RecordingProgress progress;
    EXPECT_EQ(WaveExportText::text(channels, &progress), text);
    EXPECT_EQ(progress.fractions, QList<double>{0});
    progress.requestCancel();
    EXPECT_TRUE(WaveExportText::text(channels, &progress).isEmpty());
}
