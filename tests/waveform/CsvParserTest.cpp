// SPDX-License-Identifier: GPL-3.0-or-later
// The CSV reader on malformed text and the capture file header on files written here.
#include "support/RecordingProgress.h"
#include "waveform/CsvCaptureFile.h"
#include "waveform/clsCSVParser.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

QString write(const QTemporaryDir& dir, const char* name, const QByteArray& text)
{
    const QString path = dir.filePath(QString::fromLatin1(name));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    return path;
}

} // namespace

TEST(CsvParser, TokensOfQuotedEmptyAndTrailingFields)
{
    clsCSVLine line;
    EXPECT_EQ(line.Parse_Line(QStringLiteral("a,\"b,c\",d")), 3);
    EXPECT_EQ(line.Token(1), QStringLiteral("\"b,c\""));
    EXPECT_EQ(line.Parse_Line(QStringLiteral("a,,b")), 3);
    EXPECT_EQ(line.Token(1), QString());
    EXPECT_EQ(line.Parse_Line(QStringLiteral(" a , b ,")), 2);
    EXPECT_EQ(line.Token(0), QStringLiteral("a"));
    EXPECT_EQ(line.Token(1), QStringLiteral("b"));
    EXPECT_EQ(line.Token(5), QString());
    EXPECT_EQ(line.Parse_Line(QStringLiteral("x,7")), 2);
    EXPECT_EQ(line.Token(1), QStringLiteral("7"));
    EXPECT_EQ(line.Parse_Line(QString()), 0);
    EXPECT_EQ(clsCSVLine::Parse_Token(QStringLiteral("  first , second")), QStringLiteral("first"));
}

TEST(CsvParser, LookUpsAndFileLimits)
{
    QTemporaryDir dir;
    clsCSVParser parser;
    EXPECT_EQ(parser.import_File(dir.filePath(QStringLiteral("missing.csv"))), -2);
    EXPECT_EQ(parser.import_File(write(dir, "empty.csv", {})), -2);
    int row = 0;
    int col = 0;
    EXPECT_FALSE(parser.Find_Token(QStringLiteral("x"), row, col));

    RecordingProgress progress;
    EXPECT_EQ(parser.import_File(
                  write(dir, "small.csv", "Name,Value\r\nLabel,12,13\r\n\r\n,short\r\nend,9\r\n"),
                  &progress),
              5);
    // The share of the file split so far: from none to all, never backwards.
    ASSERT_GE(progress.fractions.size(), 2);
    EXPECT_EQ(progress.fractions.first(), 0.0);
    EXPECT_EQ(progress.fractions.last(), 1.0);
    EXPECT_TRUE(std::is_sorted(progress.fractions.cbegin(), progress.fractions.cend()));
    EXPECT_EQ(parser.Get_Token_Value(QStringLiteral("Label")), QStringLiteral("12"));
    EXPECT_EQ(parser.Get_Token_Value(QStringLiteral("label")), QString());
    EXPECT_EQ(parser.Get_Token_Value(QStringLiteral("abe"), 0, 1), QStringLiteral("12"));
    EXPECT_EQ(parser.Get_Token_Value(QStringLiteral("Label"), 2), QString());
    EXPECT_EQ(parser.Get_Next_Empty_Line(0), 2);
    EXPECT_EQ(parser.Get_Next_Empty_Line(3), 5);
    EXPECT_TRUE(clsCSVParser::isLineNothing(parser.Get_Line(6)));
    QStringList cells;
    EXPECT_EQ(parser.getColumn(1, 0, 5, cells, true), 4);
    EXPECT_EQ(cells, (QStringList{"Value", "12", "", "short", "9"}));
    EXPECT_EQ(parser.getColumn(1, 0, 5, cells, false), 2);
    EXPECT_EQ(parser.getColumn(1, 9, 5, cells, false), 0);

    QByteArray many;
    for (int i = 0; i < clsCSVParser::maxLines + 10; ++i)
        many += "row," + QByteArray::number(i) + "\r\n";
    EXPECT_EQ(parser.import_File(write(dir, "many.csv", many)), clsCSVParser::maxLines - 1);
    EXPECT_EQ(parser.Get_Line(clsCSVParser::maxLines - 1)->Token(1),
              QString::number(clsCSVParser::maxLines - 1));
}

TEST(CsvParser, CaptureHeaderClampsIdsBlocksAndFactors)
{
    QTemporaryDir dir;
    QByteArray text = "Transient Capture,Test\r\nNum Channels,20\r\n";
    for (int c = 0; c < 20; ++c)
        text += "Channel " + QByteArray::number(c) + ",V" + QByteArray::number(c) + " [id:" +
                QByteArray::number(c == 1   ? 229
                                   : c == 2 ? 228
                                            : c) +
                "]\r\n";
    text += "Trigger Time Counter,500\r\n"
            "Transient Details Blocks,1\r\nBlock 0\r\nHSI_VALUE_CURRENT,'0000000000000011\r\n"
            "Max Tran +Pk Sample Index,1,2,3\r\n"
            "One Cycle RMS [0],120.5\r\n"
            "DSP ADC Block Factors\r\n,Set,Position,Factor\r\n,1,1,0.5\r\n,1,2,-1\r\n";
    text += "**WaveSample****\r\n";
    for (int j = 0; j < 4; ++j)
        text += "Samples Transfer Time Counter," + QByteArray::number(497 + j) + "\r\n";
    CsvCaptureFile file;
    ASSERT_GE(file.load(write(dir, "TRANSIENT_0001.csv", text), 1024, 4096), 0);
    EXPECT_TRUE(file.transient());
    EXPECT_EQ(file.channelCount(), 16);
    EXPECT_EQ(file.channelId(0), 0);
    EXPECT_EQ(file.channelId(1), -1);
    EXPECT_EQ(file.channelId(2), 228);
    EXPECT_EQ(file.triggerTimeCounter(), 500);
    // The counter sits four rows below the marker: block 2, a quarter cycle less one on top.
    EXPECT_EQ(file.timingPT(), 1024 / 4 - 1 + 2);
    // Fault 12: the scan ran to the end of the file; a counter past the capture's rows (three
    // here) is not its trigger.
    CsvCaptureFile shortCapture;
    ASSERT_GE(shortCapture.load(write(dir, "SHORT.csv", text), 1024, 3), 0);
    EXPECT_EQ(shortCapture.timingPT(), 0);
    ASSERT_EQ(file.transientBlocks().size(), 1);
    const CsvCaptureFile::TransientBlock& block = file.transientBlocks().first();
    EXPECT_EQ(block.hsiTransition, QStringLiteral("0000000000000000"));
    EXPECT_EQ(block.hsiValueCurrent, QStringLiteral("0000000000000011"));
    EXPECT_EQ(block.maxPosIndex, (std::array<qint32, 3>{1, 2, 3}));
    EXPECT_EQ(file.result(QStringLiteral("One Cycle RMS [0]")), QStringList{"120.5"});
    ASSERT_TRUE(file.factors().found());
    EXPECT_DOUBLE_EQ(file.factors().first(1), 0.5);
    EXPECT_DOUBLE_EQ(file.factors().first(2), 0.098401062);
    EXPECT_DOUBLE_EQ(file.factors().sampleScale(3, {2.0, 1.0, 1.0, 1.0}), 1.0);
    EXPECT_DOUBLE_EQ(file.factors().sampleScale(40, {1.0, 1.0, 1.0, 80.0}), 0.003090762 * 80.0);
    EXPECT_DOUBLE_EQ(file.factors().sampleScale(99, {2.0, 2.0, 2.0, 2.0}), 1.0);
    EXPECT_DOUBLE_EQ(AdcBlockFactors().sampleScale(37, {1.0, 1.0, 0.0, 1.0}), 100.0 / 32768.0);
    EXPECT_DOUBLE_EQ(AdcBlockFactors::ratio(QStringLiteral("400/5")), 80.0);
    EXPECT_DOUBLE_EQ(AdcBlockFactors::ratio(QStringLiteral("400")), 1.0);
    EXPECT_DOUBLE_EQ(AdcBlockFactors::ratio(QStringLiteral("400/0")), 1.0);

    // A file without any of the labels keeps every default.
    CsvCaptureFile bare;
    ASSERT_GE(bare.load(write(dir, "bare.csv", "hello\r\n"), 128, 1024), 0);
    EXPECT_FALSE(bare.transient());
    EXPECT_EQ(bare.channelCount(), 0);
    EXPECT_EQ(bare.timingPT(), 0);
    EXPECT_FALSE(bare.factors().found());
}
