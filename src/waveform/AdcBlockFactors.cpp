// SPDX-License-Identifier: GPL-3.0-or-later
#include "AdcBlockFactors.h"

#include "clsCSVParser.h"

namespace lorvane {

namespace {

constexpr double voltsPerCount = 0.098401062;
constexpr double auxVoltsPerCount = 0.196802124;
constexpr double ampsPerCount = 0.012363048;
constexpr double lowVoltsPerCount = 0.049200531;
constexpr double lowAmpsPerCount = 0.003090762;

double orOne(double ratio)
{
    return ratio == 0.0 ? 1.0 : ratio;
}

} // namespace

AdcBlockFactors::AdcBlockFactors()
{
    m_first.fill(voltsPerCount);
    m_first[7] = auxVoltsPerCount;
    m_first[8] = ampsPerCount;
    m_second.fill(lowAmpsPerCount);
    for (int i = 0; i < 5; ++i)
        m_second[i] = lowVoltsPerCount;
}

void AdcBlockFactors::read(const clsCSVParser& parser)
{
    int row = 0;
    int col = 0;
    m_found = parser.Find_Token(QStringLiteral("DSP ADC Block Factors"), row, col);
    if (!m_found)
        return;
    const auto take = [&](std::array<double, 9>& set, int firstRow) {
        QStringList cells;
        parser.getColumn(col + 3, firstRow, 9, cells, true);
        for (int i = 0; i < cells.size(); ++i) {
            bool ok = false;
            const double value = cells.at(i).toDouble(&ok);
            if (ok && value > 0.0)
                set[i] = value;
        }
    };
    take(m_first, row + 2);
    take(m_second, row + 12);
}

double AdcBlockFactors::sampleScale(int channelId, const Ratios& ratios) const
{
    const auto scale = [&](double builtIn, double fromBlock, double ratio) {
        return (m_found ? fromBlock : builtIn / 32768.0) * orOne(ratio);
    };
    if ((channelId >= 0 && channelId <= 5) || (channelId >= 77 && channelId <= 79))
        return scale(3223.92, first(1), ratios.pt);
    if (channelId == 6)
        return scale(3223.92, first(7), ratios.ptAux);
    if (channelId == 7)
        return scale(6447.84, first(8), ratios.pt);
    if (channelId == 8)
        return scale(400.0, first(9), ratios.ct);
    if (channelId >= 32 && channelId <= 36)
        return scale(1611.96, second(1), ratios.pt);
    if (channelId >= 37 && channelId <= 39)
        return scale(100.0, second(6), ratios.ct);
    if (channelId == 40)
        return scale(100.0, second(9), ratios.ctn);
    return 1.0;
}

double AdcBlockFactors::ratio(const QString& text)
{
    const qsizetype slash = text.indexOf(QLatin1Char('/'));
    if (slash < 0)
        return 1.0;
    const double primary = text.left(slash).trimmed().toDouble();
    const double secondary = text.mid(slash + 1).trimmed().toDouble();
    return primary > 0.0 && secondary > 0.0 ? primary / secondary : 1.0;
}

} // namespace lorvane
