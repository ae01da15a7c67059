// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "waveform/ui/TalWaveGraphPE.h"

#include <QtTest/QTest>

namespace lorvane::test {

/// Serves the window's events until the capture read off its thread is in; true when a
/// capture is shown then.
inline bool readDone(TalWaveGraphPE& window)
{
    return QTest::qWaitFor([&window] { return !window.reading(); }, 30000) &&
           window.capture().isOpen();
}

/// Opens as the log grid's &Graph does and waits for the capture.
inline bool openNow(TalWaveGraphPE& window, const QueryNumbers& numbers,
                    const QList<qint32>& series, int position, const QString& rangeText)
{
    return window.open(numbers, series, position, rangeText) && readDone(window);
}

/// P&rev or &Next and the wait for the capture.
inline void stepNow(TalWaveGraphPE& window, int delta)
{
    window.step(delta);
    readDone(window);
}

} // namespace lorvane::test
