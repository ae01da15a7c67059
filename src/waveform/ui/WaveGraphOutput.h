// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

class QChartView;
class QPrinter;

namespace lorvane {

/// Pictures and prints of the waveform window's graphs.
class WaveGraphOutput
{
public:
    /// Writes `view` to `path`: SVG for a ".svg" name, else PNG. False when it cannot.
    static bool save(QChartView* view, const QString& title, const QString& path);
    /// Prints `views` three to a page, each scaled to the page width. False when the printer
    /// cannot be opened.
    static bool print(const QList<QChartView*>& views, QPrinter& printer);
};

} // namespace lorvane
