// SPDX-License-Identifier: GPL-3.0-or-later
#include "BoundaryLineFile.h"

#include "platform/ProfileFile.h"

#include <QRegularExpression>

namespace lorvane {

namespace {

const QString section = QStringLiteral("qlmpqgraph");

/// The number at the start of `text` (blanks before it skipped), 0 when there is none: "5" is
/// 5, "2.5e-3 s" 0.0025, "" and "abc" 0.
double leadingNumber(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral(R"(^\s*([+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?))"));
    const QRegularExpressionMatch match = number.match(text);
    return match.hasMatch() ? match.captured(1).toDouble() : 0.0;
}

/// An integer key; `fallback` when it is outside [low, high].
int boundedKey(const ProfileFile& file, const QString& key, int low, int high, int fallback)
{
    const double value = leadingNumber(file.readString(section, key, QStringLiteral("0")));
    if (value < low || value > high)
        return fallback;
    return int(value);
}

} // namespace

PqEnvelope BoundaryLineFile::Result::envelope() const
{
    PqEnvelope envelope;
    envelope.builtIn = false;
    for (const Line& line : lines) {
        for (const QList<QPointF>& set : line.sets) {
            if (!set.isEmpty())
                envelope.polylines.append({line.name, line.color, line.type, set});
        }
    }
    return envelope;
}

BoundaryLineFile::Result BoundaryLineFile::ReadBoundaryLines(const QString& path)
{
    const ProfileFile file(path);
    Result result;
    result.lineCount =
        int(leadingNumber(file.readString(section, QStringLiteral("lines"), QStringLiteral("0"))));
    if (result.lineCount <= 0 || result.lineCount > maxLines) {
        result.failure = Failure::LineCount;
        return result;
    }
    for (int i = 1; i <= result.lineCount; ++i) {
        const QString stem = QStringLiteral("l%1_").arg(i);
        Line line;
        line.name = file.readString(section, stem + QStringLiteral("name"), QString());
        if (line.name.isEmpty())
            line.name = QStringLiteral("[Line %1 Name]").arg(i);
        line.genMethod = boundedKey(file, stem + QStringLiteral("genmethod"), 0, 32767, 0);
        line.color = boundedKey(file, stem + QStringLiteral("color"), 0, 15, 0);
        line.type = boundedKey(file, stem + QStringLiteral("type"), 0, 6, 0) + 38;
        // Both counts are read before the points, as the keys stand in the file.
        const std::array<int, 2> counts{
            boundedKey(file, stem + QStringLiteral("set1_points"), 0, maxPoints, 0),
            boundedKey(file, stem + QStringLiteral("set2_points"), 0, maxPoints, 0)};
        for (int s = 1; s <= 2; ++s) {
            QList<QPointF>& points = line.sets[s - 1];
            points.reserve(counts[s - 1]);
            for (int k = 1; k <= counts[s - 1]; ++k) {
                const QString text =
                    file.readString(section, stem + QStringLiteral("set%1_xy%2").arg(s).arg(k),
                                    QStringLiteral("N/A"));
                const qsizetype slash = text.indexOf(QLatin1Char('/'));
                // "/" must have an x before it: at position 2 or later, counted from 1.
                if (text == QLatin1String("N/A") || slash < 1) {
                    result.failure = Failure::Point;
                    result.line = i;
                    result.set = s;
                    result.point = k;
                    result.lines.clear();
                    return result;
                }
                points.append(
                    {leadingNumber(text.left(slash)), leadingNumber(text.mid(slash + 1))});
            }
        }
        result.lines.append(line);
    }
    return result;
}

} // namespace lorvane
