// SPDX-License-Identifier: GPL-3.0-or-later
#include "ClassicPalette.h"

#include <array>

namespace lorvane {

QColor ClassicPalette::color(int index)
{
    static const std::array<QColor, 16> colors{
        QColor(0, 0, 0),       QColor(0, 0, 128),   QColor(0, 128, 0),   QColor(0, 128, 128),
        QColor(128, 0, 0),     QColor(128, 0, 128), QColor(128, 128, 0), QColor(192, 192, 192),
        QColor(128, 128, 128), QColor(0, 0, 255),   QColor(0, 255, 0),   QColor(0, 255, 255),
        QColor(255, 0, 0),     QColor(255, 0, 255), QColor(255, 255, 0), QColor(255, 255, 255)};
    return index >= 0 && index < 16 ? colors[index] : colors[0];
}

QColor ClassicPalette::channel(int channel)
{
    static const std::array<QColor, 6> colors{QColor(200, 30, 30),  QColor(40, 40, 40),
                                              QColor(20, 140, 40),  QColor(230, 120, 0),
                                              QColor(140, 40, 170), QColor(0, 150, 160)};
    return colors[std::size_t(channel) % colors.size()];
}

} // namespace lorvane
