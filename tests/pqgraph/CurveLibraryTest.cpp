// SPDX-License-Identifier: GPL-3.0-or-later
// The delivered curve library read back through the boundary line reader, each file's points
// against the published values typed in here from their sources (see docs/guide/pq-graph.md).
#include "pqgraph/CurveLibrary.h"

#include "pqgraph/BoundaryLineFile.h"
#include "support/TestEnvironment.h"

#include <gtest/gtest.h>

using namespace lorvane;

namespace {

struct Published
{
    const char* file;
    /// Each line's points (seconds, percent), as the source gives them.
    QList<QList<QPointF>> lines;
    /// Where an event just outside the envelope lies: seconds, percent, placement.
    QList<std::tuple<double, double, EnvelopePlacement>> checks;
};

TEST(CurveLibrary, ShippedFilesHoldThePublishedPoints)
{
    using P = EnvelopePlacement;
    // 0.5 and 1 cycle, 10/12, 25/30 and 250/300 cycles of 50 and 60 Hz.
    auto iec = [](double half, double one) {
        return QList<QPointF>{{half, 0}, {one, 0},  {one, 40}, {0.2, 40},
                              {0.2, 70}, {0.5, 70}, {0.5, 80}, {5, 80}};
    };
    const Published published[] = {
        {"ITIC",
         {{{0.0001667, 500},
           {0.001, 200},
           {0.003, 140},
           {0.003, 120},
           {0.5, 120},
           {0.5, 110},
           {100, 110}},
          {{0.02, 0}, {0.02, 70}, {0.5, 70}, {0.5, 80}, {10, 80}, {10, 90}, {100, 90}}},
         {{0.1, 125, P::Above}, {0.1, 65, P::Below}, {0.01, 0, P::Inside}, {60, 95, P::Inside}}},
        {"SEMI-F47-0706",
         {{{0.05, 50}, {0.2, 50}, {0.2, 70}, {0.5, 70}, {0.5, 80}, {1, 80}}},
         {{0.1, 45, P::Below}, {0.3, 65, P::Below}, {0.3, 75, P::Inside}, {0.1, 300, P::Inside}}},
        {"IEC-61000-4-11-Class3",
         {iec(0.01, 0.02), iec(0.008333, 0.016667)},
         {{0.1, 35, P::Below}, {1, 75, P::Below}, {0.015, 0, P::Inside}, {0.4, 72, P::Inside}}},
    };
    const QList<CurveLibrary::Entry> files =
        CurveLibrary::files(test::dataFolder() + QStringLiteral("/curves"));
    ASSERT_EQ(files.size(), int(std::size(published)));
    for (const Published& p : published) {
        const auto entry = std::find_if(files.cbegin(), files.cend(), [&p](const auto& e) {
            return e.name == QLatin1String(p.file);
        });
        ASSERT_NE(entry, files.cend()) << p.file;
        const BoundaryLineFile::Result read = BoundaryLineFile::ReadBoundaryLines(entry->path);
        ASSERT_TRUE(read.ok()) << p.file;
        ASSERT_EQ(read.lines.size(), p.lines.size()) << p.file;
        for (int i = 0; i < p.lines.size(); ++i) {
            EXPECT_EQ(read.lines[i].sets[0], p.lines[i]) << p.file << " line " << i + 1;
            EXPECT_TRUE(read.lines[i].sets[1].isEmpty()) << p.file;
        }
        const PqEnvelope envelope = read.envelope();
        for (const auto& [seconds, percent, expected] : p.checks)
            EXPECT_EQ(envelope.placement(seconds, percent), expected)
                << p.file << " at " << seconds << " s, " << percent << " %";
    }
}

} // namespace
