// SPDX-License-Identifier: GPL-3.0-or-later
// Import of the capture files of a split-log meter against a plain read of the same files:
// the whole file read and cut into lines and comma fields with Qt's own calls. The project's
// path reads the file, tokenises every line, finds the header rows and the trigger sample,
// and scales the samples of every channel.
#include "BenchClock.h"
#include "waveform/CsvCaptureFile.h"
#include "waveform/WaveformChannels.h"
#include "waveform/WaveformRecord.h"
#include "waveform/clsCSVParser.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>

using namespace lorvane;

namespace {

/// The plain read: the file at once, lines at CR LF, fields at commas.
qsizetype plainRead(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    qsizetype fields = 0;
    for (const QByteArray& line : file.readAll().split('\n'))
        fields += line.split(',').size();
    return fields;
}

/// Sample rate and sample count of a capture file, from its own rows.
void captureSize(const QString& path, int& rate, int& count)
{
    clsCSVParser parser;
    parser.import_File(path);
    rate = parser.Get_Token_Value(QStringLiteral("Sample Rate"), 0, 0).toInt();
    count = 0;
    int row = 0;
    int col = 0;
    if (parser.Find_Token(QStringLiteral("Waveform Samples Start"), row, col, 0, 0, 0))
        count = parser.Get_Next_Empty_Line(row + 1) - row - 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: CsvCaptureImportBench FOLDER_WITH_CSV_FILES\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const QFileInfoList files =
        folder.entryInfoList({QStringLiteral("*.csv")}, QDir::Files, QDir::Size | QDir::Reversed);
    if (files.isEmpty()) {
        std::fprintf(stderr, "CsvCaptureImportBench: no *.csv in %s\n", argv[1]);
        return 2;
    }
    for (const QFileInfo& info : {files.first(), files.last()}) {
        const QString path = info.absoluteFilePath();
        int rate = 0;
        int count = 0;
        captureSize(path, rate, count);
        WaveformRecord record;
        record.sampleRate = static_cast<qint16>(rate);
        record.sampleCount = count;
        std::printf("%s: %lld bytes, %d samples a channel at %d a cycle\n",
                    qPrintable(info.fileName()), static_cast<long long>(info.size()), count, rate);

        bench::compare(
            "import_File only",
            [&] {
                clsCSVParser parser;
                parser.import_File(path);
            },
            [&] { plainRead(path); }, 15);
        bench::compare(
            "header, trigger and samples",
            [&] {
                CsvCaptureFile capture;
                capture.load(path, rate, count);
                WaveformChannels channels;
                capture.loadSamples(record, channels);
            },
            [&] { plainRead(path); }, 15);
    }
    return 0;
}
