// SPDX-License-Identifier: GPL-3.0-or-later
// The waveform window's rules without a window, on captures written by lorvane-sim: the click
// statistics against lorvane-cli at every rate, the caption, the PQ link, marks, zoom, strips
// and the order of the interharmonic checks.
#include "waveform/WaveGraphSession.h"

#include "support/TestEnvironment.h"
#include "support/WaveWindowFixture.h"
#include "waveform/WaveformProperties.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::WaveWindowFixture;

namespace {

bool has(const QList<WaveMarks::Annotation>& annotations, const QString& text)
{
    return std::any_of(annotations.cbegin(), annotations.cend(),
                       [&](const WaveMarks::Annotation& a) { return a.text == text; });
}

} // namespace

TEST(WaveGraphSession, Fault1AClickAnalysesTheSameCycleAsTheCommandLineAtEveryRate)
{
    struct Case
    {
        WaveWindowFixture::Meter meter;
        int rate;
    };
    const Case cases[] = {
        {WaveWindowFixture::Meter::Standard, 16},
        {WaveWindowFixture::Meter::Standard, 32},
        {WaveWindowFixture::Meter::Standard, 64},
        {WaveWindowFixture::Meter::Standard, 128},
        {WaveWindowFixture::Meter::Standard, 256},
        {WaveWindowFixture::Meter::Standard, 512},
        {WaveWindowFixture::Meter::CaptureFiles, 128},
        {WaveWindowFixture::Meter::CaptureFiles, 512},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "meter " << int(c.meter) << " rate " << c.rate);
        WaveWindowFixture fixture(c.meter);
        const int position = fixture.periodic(c.rate);
        ASSERT_GE(position, 0);
        WaveGraphSession session(fixture.scratch(), WaveDisplaySettings());
        ASSERT_TRUE(session.open(fixture.numbers(), fixture.series(), position, {}).ok);
        // 100 ms is six cycles of 60 Hz: the cycle that starts at sample 6 x rate.
        session.click(WaveformChannels::Ia, 100.0);
        const WaveformStatistics::ChannelStatistics& s = session.statistics();
        EXPECT_EQ(s.window.cursor, 6 * c.rate);
        EXPECT_NEAR(*session.cursorMs(), 100.0, 0.01);

        const lorvane::test::ProcessResult cli = lorvane::test::runProgram(
            QStringLiteral("lorvane-cli"),
            {QStringLiteral("waveform"), QStringLiteral("--meter"), fixture.meterFile(),
             QStringLiteral("--record"), QString::number(fixture.series().at(position)),
             QStringLiteral("--stats"), QStringLiteral("3"), QStringLiteral("--at"),
             QStringLiteral("100"), QStringLiteral("--json")});
        ASSERT_EQ(cli.exitCode, 0) << cli.err.toStdString();
        const QJsonObject out = QJsonDocument::fromJson(cli.out.toUtf8()).object();
        EXPECT_EQ(out.value(QStringLiteral("cursor")).toInt(), s.window.cursor);
        EXPECT_EQ(out.value(QStringLiteral("rms")).toDouble(), double(s.rms));
        EXPECT_EQ(out.value(QStringLiteral("peak")).toDouble(), double(s.peak));
        EXPECT_EQ(out.value(QStringLiteral("crest")).toDouble(), s.crest);
        EXPECT_EQ(out.value(QStringLiteral("thd")).toDouble(), s.harmonics.thd);
        EXPECT_EQ(out.value(QStringLiteral("kFactor")).toDouble(), s.harmonics.kFactor);
        EXPECT_TRUE(out.value(QStringLiteral("rms")).isDouble());
    }
}

TEST(WaveGraphSession, Faults4And5TheCaptionFollowsTheCaptureAndNamesItsPqEvent)
{
    WaveWindowFixture fixture;
    WaveGraphSession session(fixture.scratch(), WaveDisplaySettings());
    const QString range = QStringLiteral("2024-03-04 to 2024-03-05");
    ASSERT_TRUE(session.open(fixture.numbers(), fixture.series(), 0, range).ok);
    const auto expected = [&] {
        const WaveformRecord& r = session.capture().record();
        return QStringLiteral("Waveform #%1: ").arg(r.waveformNumber);
    };
    EXPECT_TRUE(session.caption().startsWith(expected())) << session.caption().toStdString();
    EXPECT_TRUE(session.caption().endsWith(
        QStringLiteral(" (%1), %2 - Waveforms").arg(range).arg(fixture.series().size())));
    ASSERT_TRUE(session.step(1).ok);
    EXPECT_TRUE(session.caption().startsWith(expected())) << "the caption follows &Next";

    // The simulated disturbances are PQ records linked to their captures, on a meter in one
    // file and on a split-log meter, whose PQ records come from another file of the query than
    // its captures and so carry another device index (fault: never linked there).
    for (const auto meter :
         {WaveWindowFixture::Meter::Standard, WaveWindowFixture::Meter::CaptureFiles}) {
        WaveWindowFixture files(meter);
        WaveGraphSession opened(files.scratch(), WaveDisplaySettings());
        int linked = 0;
        for (int p = 0; p < files.series().size(); ++p) {
            ASSERT_TRUE(opened.open(files.numbers(), files.series(), p, range).ok);
            const std::optional<WavePqEvent>& pq = opened.capture().pqEvent();
            if (!pq)
                continue;
            ++linked;
            EXPECT_TRUE(opened.caption().contains(QStringLiteral(": PQ ") + pq->condition))
                << opened.caption().toStdString();
            const QList<WaveformProperties::Row> rows =
                WaveformProperties::rows(opened.capture().record(), pq);
            EXPECT_TRUE(std::any_of(rows.cbegin(), rows.cend(),
                                    [](const auto& row) { return row.first == "PQ Start"; }));
            if (pq->startSample >= 0) {
                EXPECT_TRUE(has(opened.annotations(opened.strips().first()), "PQ-S"));
            }
        }
        EXPECT_GT(linked, 0) << int(meter);
    }
}

TEST(WaveGraphSession, MarksZoomTogglesAndStrips)
{
    WaveWindowFixture fixture;
    WaveGraphSession session(fixture.scratch(), WaveDisplaySettings());
    EXPECT_TRUE(session.open(fixture.numbers(), fixture.series(), 0, {}).ok);
    const QList<WaveGraphSession::Strip> strips = session.strips();
    ASSERT_EQ(strips.size(), 8);
    EXPECT_EQ(strips.at(7).channels.size(), 8);
    EXPECT_EQ(strips.at(7).name, QStringLiteral("Inputs"));

    session.marks().set(1, 20.0);
    session.marks().set(2, 7.66);
    EXPECT_TRUE(has(session.annotations(strips.at(5)), "     Duration = 12.34ms"));
    session.click(2, 5.0);
    EXPECT_TRUE(has(session.annotations(strips.at(2)), "Cursor"));
    EXPECT_FALSE(has(session.annotations(strips.at(1)), "Cursor"));

    const WaveZoomStack::Range full = session.zoom().range();
    EXPECT_TRUE(session.zoom().zoomTo(10, 20));
    EXPECT_TRUE(session.zoom().zoomTo(12, 14));
    EXPECT_FALSE(session.zoom().zoomTo(14, 14));
    session.zoom().scrollTo(1.0e9);
    EXPECT_EQ(session.zoom().range(), (WaveZoomStack::Range{full.x1 - 2, full.x1}));
    EXPECT_TRUE(session.zoom().undo());
    EXPECT_EQ(session.zoom().range(), (WaveZoomStack::Range{10, 20}));
    session.zoom().zoomOut();
    EXPECT_EQ(session.zoom().depth(), 0);
    EXPECT_EQ(session.zoom().range(), full);

    // The detail view shows the focus strip alone; In and the inputs follow their toggles.
    session.setNeutralOn(false);
    EXPECT_FALSE(session.stripShown(strips.at(6)));
    EXPECT_TRUE(session.stripShown(strips.at(7)));
    session.setDetailsOn(true);
    EXPECT_TRUE(session.stripShown(strips.at(2)));
    EXPECT_FALSE(session.stripShown(strips.at(0)));

    // A new capture starts afresh; P&rev on the first row keeps it and says why.
    const WaveGraphSession::Outcome first = session.step(-1);
    EXPECT_FALSE(first.ok);
    EXPECT_EQ(first.message, QStringLiteral("This is the first waveform in this series."));
    EXPECT_TRUE(session.marks().isSet(1));
    ASSERT_TRUE(session.step(1).ok);
    EXPECT_FALSE(session.marks().isSet(1));
    EXPECT_FALSE(session.hasStatistics());
    EXPECT_FALSE(session.open(fixture.numbers(), {999999}, 0, {}).ok);
    EXPECT_FALSE(session.isOpen());
}

TEST(WaveGraphSession, Faults6And9TalmoCapturesTheirDisplayFrequencyAndTheCheckOrder)
{
    WaveWindowFixture fixture(WaveWindowFixture::Meter::Talmo);
    WaveDisplaySettings settings;
    settings.talmoFreq = 50;
    WaveGraphSession session(fixture.scratch(), settings);
    ASSERT_TRUE(session.open(fixture.numbers(), fixture.series(), 0, {}).ok);
    // Fault 9: the stored display frequency of this family's axes had no effect.
    const WaveformRecord& r = session.capture().record();
    EXPECT_EQ(r.systemFrequency, 50);
    EXPECT_FLOAT_EQ(session.capture().channels().time.at(1),
                    QString::number(1000.0 / 50 / r.sampleRate, 'f', 2).toFloat());
    settings.talmoFreq = 60;
    session.setSettings(settings);
    EXPECT_EQ(session.capture().record().systemFrequency, 60);
    EXPECT_FLOAT_EQ(session.capture().channels().time.at(1),
                    QString::number(1000.0 / 60 / r.sampleRate, 'f', 2).toFloat());

    session.click(WaveformChannels::Va, 1.0);
    // A window far past the end would not fit either; the device type is told first.
    session.capture().record().windowStart = 100000;
    const InterharmonicAnalysis::Result result = session.runInterharmonic();
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.message,
              QStringLiteral("Device type not supported. This feature is for Halyx only."));
}
