// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BoundaryLineFile.h"

#include <QStringList>

namespace lorvane {

/// The texts of the power quality graphs, made from the core's numbers where they are shown
/// (the window, the command line), each through the string catalogue.
class PqGraphTexts
{
public:
    /// "PQ Graph - 2D", "PQ Graph - 3D", "Histogram": the pages of `Combo1` in order.
    static QStringList pageNames();
    static QString title2d();
    static QString durationTitle();
    static QString magnitudeTitle();
    /// "1us" ... "100s": the decades 1e-6 to 1e2 s, index 0 to 8.
    static QStringList decadeLabels();
    /// The label of the decade 10^`exponent` s; empty outside 1us to 100s.
    static QString decadeLabel(int exponent);
    static QString title3d();
    static QString voltageMagnitudeTitle();
    static QString durationAxisTitle();
    static QString countsTitle();
    static QString histogramTitle();
    static QString cumulativeTitle();
    /// Heads of the table of sums: "Count", "Cumulative", "Cumulative %".
    static QStringList sumsHeads();
    /// "Devices:" and the meters' names.
    static QString deviceList(const QStringList& names);
    /// Why a boundary line file was refused ("Cannot read line 1, set 2, point 3.").
    static QString readFailure(const BoundaryLineFile::Result& result, const QString& path);
    /// The reason followed by "Use CBEMA curve.".
    static QString fallback(const QString& reason);
    static QString placement(EnvelopePlacement placement);
};

} // namespace lorvane
