// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PqEnvelope.h"

#include <QString>
#include <array>

namespace lorvane {

/// A user's boundary line file: an INI text of section `qlmpqgraph` with one to three lines,
/// each of two point sets (`lines`, `l{i}_name`, `l{i}_genmethod`, `l{i}_color`, `l{i}_type`,
/// `l{i}_set{s}_points`, `l{i}_set{s}_xy{k}` = "x/y" in seconds and percent).
class BoundaryLineFile
{
public:
    struct Line
    {
        QString name;
        /// Kept as read (0 to 32767); a later curve generator may use it.
        int genMethod = 0;
        int color = 0;
        /// The file's type 0 to 6 plus 38.
        int type = 38;
        std::array<QList<QPointF>, 2> sets;
    };

    /// Why a file was refused.
    enum class Failure
    {
        None,
        LineCount, ///< `lines` missing, 0 or above 3 (a missing file reads as 0)
        Point,     ///< a point text "N/A" (missing), without "/", or "/" before position 2
    };

    struct Result
    {
        Failure failure = Failure::None;
        QList<Line> lines;
        /// The `lines` value read.
        int lineCount = 0;
        /// Where a bad point stands, each from 1.
        int line = 0;
        int set = 0;
        int point = 0;

        bool ok() const { return failure == Failure::None; }
        /// The file's lines as an envelope, each set one polyline.
        PqEnvelope envelope() const;
    };

    static constexpr int maxLines = 3;
    static constexpr int maxPoints = 32767;

    /// ReadBoundaryLines: reads `path` key by key in the order of the file's lines.
    static Result ReadBoundaryLines(const QString& path);
};

} // namespace lorvane
