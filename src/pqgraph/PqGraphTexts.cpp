// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqGraphTexts.h"

#include "platform/UserText.h"

#include <QDir>

namespace lorvane {

QStringList PqGraphTexts::pageNames()
{
    return {userText("601001", "PQ Graph - 2D"), userText("601002", "PQ Graph - 3D"),
            userText("601003", "Histogram")};
}

QString PqGraphTexts::title2d()
{
    return userText("601004", "Power Quality");
}

QString PqGraphTexts::durationTitle()
{
    return userText("601005", "Duration (Seconds)");
}

QString PqGraphTexts::magnitudeTitle()
{
    return userText("601006", "% of Full Scale");
}

QStringList PqGraphTexts::decadeLabels()
{
    return {QStringLiteral("1us"), QStringLiteral("10us"), QStringLiteral("100us"),
            QStringLiteral("1ms"), QStringLiteral("10ms"), QStringLiteral("100ms"),
            QStringLiteral("1s"),  QStringLiteral("10s"),  QStringLiteral("100s")};
}

QString PqGraphTexts::decadeLabel(int exponent)
{
    return decadeLabels().value(exponent + 6);
}

QString PqGraphTexts::title3d()
{
    return userText("601007", "PQ Counts, Magnitude, and Duration");
}

QString PqGraphTexts::voltageMagnitudeTitle()
{
    return userText("601008", "Voltage Magnitude(%)");
}

QString PqGraphTexts::durationAxisTitle()
{
    return userText("601009", "Duration");
}

QString PqGraphTexts::countsTitle()
{
    return userText("601010", "Counts");
}

QString PqGraphTexts::histogramTitle()
{
    return userText("601011", "PQ Counts Magnitude Histogram");
}

QString PqGraphTexts::cumulativeTitle()
{
    return userText("601012", "Cumulative Frequency(%)");
}

QStringList PqGraphTexts::sumsHeads()
{
    return {userText("601013", "Count"), userText("601014", "Cumulative"),
            userText("601015", "Cumulative %")};
}

QString PqGraphTexts::deviceList(const QStringList& names)
{
    return userText("601016", "Devices:") + QLatin1Char(' ') + names.join(QStringLiteral(", "));
}

QString PqGraphTexts::readFailure(const BoundaryLineFile::Result& result, const QString& path)
{
    switch (result.failure) {
    case BoundaryLineFile::Failure::None:
        return {};
    case BoundaryLineFile::Failure::LineCount:
        if (path.isEmpty())
            return userText("601017", "No PQ graph boundary line file is chosen.");
        return userText("601018", "The boundary line file %1 gives %2 lines; it must give 1 to 3.")
            .arg(QDir::toNativeSeparators(path))
            .arg(result.lineCount);
    case BoundaryLineFile::Failure::Point:
        return userText("601019", "Cannot read line") + QLatin1Char(' ') +
               QString::number(result.line) + QStringLiteral(", ") + userText("601020", "set") +
               QLatin1Char(' ') + QString::number(result.set) + QStringLiteral(", ") +
               userText("601021", "point") + QLatin1Char(' ') + QString::number(result.point) +
               QLatin1Char('.');
    }
    return {};
}

QString PqGraphTexts::fallback(const QString& reason)
{
    return reason + QLatin1Char(' ') + userText("601022", "Use CBEMA curve") + QLatin1Char('.');
}

QString PqGraphTexts::placement(EnvelopePlacement placement)
{
    switch (placement) {
    case EnvelopePlacement::Inside:
        return userText("601023", "inside the envelope");
    case EnvelopePlacement::Above:
        return userText("601024", "above the upper line");
    case EnvelopePlacement::Below:
        return userText("601025", "below the lower line");
    }
    return {};
}

} // namespace lorvane
