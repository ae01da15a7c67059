// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChartBars.h"

#include "PqTestStatistics.h"

#include <functional>

namespace lorvane {

std::optional<float> ChartBars::percent(double count, double total)
{
    if (total == 0)
        return std::nullopt;
    return float(count / total * 100.0);
}

std::optional<QList<QList<float>>> ChartBars::bars(Chart chart, const PqTestStatistics& s)
{
    double total = s.n2();
    int series = PqTestStatistics::phases;
    int bins = 0;
    std::function<quint32(int, int)> count;
    switch (chart) {
    case Chart::FRE:
        total = s.n1();
        series = 1;
        bins = PqTestStatistics::frequencyBins;
        count = [&s](int, int bin) { return s.frequency(bin); };
        break;
    case Chart::LSV:
        bins = PqTestStatistics::slowVoltageBins;
        count = [&s](int phase, int bin) { return s.slowVoltage(phase, bin); };
        break;
    case Chart::FVF:
        bins = PqTestStatistics::fastVoltageBins;
        count = [&s](int phase, int bin) { return s.fastVoltage(phase, bin); };
        break;
    case Chart::FLI:
        total = s.n3();
        bins = 2;
        count = [&s](int phase, int bin) { return s.flicker(phase, bin); };
        break;
    case Chart::SVU:
        series = 1;
        bins = 3;
        count = [&s](int, int bin) { return s.unbalance(bin); };
        break;
    case Chart::THD:
        bins = 1;
        count = [&s](int phase, int) { return s.thd(phase); };
        break;
    case Chart::HARF:
    case Chart::HAR: {
        const int first = chart == Chart::HARF ? 2 : 14;
        bins = 12;
        count = [&s, first](int phase, int bin) { return s.harmonic(phase, first + bin); };
        break;
    }
    }
    QList<QList<float>> out;
    for (int line = 0; line < series; ++line) {
        QList<float> heights;
        for (int bin = 0; bin < bins; ++bin) {
            const std::optional<float> height = percent(count(line, bin), total);
            if (!height)
                return std::nullopt;
            heights << *height;
        }
        out << heights;
    }
    return out;
}

QString ChartBars::barText(float value)
{
    const QString text = QString::number(double(value), 'g', 7);
    if (text.contains(QLatin1String("e-"), Qt::CaseInsensitive))
        return QStringLiteral("< 0.1");
    const qsizetype point = text.indexOf(QLatin1Char('.'));
    return point < 0 ? text : text.left(point + 2);
}

} // namespace lorvane
