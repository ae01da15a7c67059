// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendColors.h"

#include "platform/ProfileFile.h"

#include <QRegularExpression>

namespace lorvane {

namespace {

/// The texts as the settings file holds them, blue-green-red.
const char* const defaultTexts[TrendColors::count] = {
    "&hFF0000&", "&h00FF00&", "&h0000FF&", "&hFF7F00&", "&hFF007F&", "&h7FFF00&",
    "&h00FF7F&", "&h7F00FF&", "&h007FFF&", "&hFFFF00&", "&hFF00FF&", "&h00FFFF&",
    "&hFFFFFF&", "&h7F7F00&", "&h007F7F&", "&h7F7F7F&"};

} // namespace

std::optional<quint32> TrendColors::parse(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^&[hH]([0-9A-Fa-f]{1,6})&?$"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    const quint32 bgr = match.captured(1).toUInt(nullptr, 16);
    return ((bgr & 0xFF) << 16) | (bgr & 0xFF00) | ((bgr >> 16) & 0xFF);
}

QString TrendColors::text(quint32 rgb)
{
    const quint32 bgr = ((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF);
    return QStringLiteral("&h%1&")
        .arg(bgr, 6, 16, QLatin1Char('0'))
        .toUpper()
        .replace(QStringLiteral("&H"), QStringLiteral("&h"));
}

QList<quint32> TrendColors::defaults()
{
    QList<quint32> colours;
    for (const char* text : defaultTexts)
        colours << *parse(QLatin1String(text));
    return colours;
}

QList<quint32> TrendColors::read(const ProfileFile& settings)
{
    QList<quint32> colours = defaults();
    for (int i = 0; i < count; ++i) {
        const QString text =
            settings.readString(QStringLiteral("Color Set"), QStringLiteral("Line%1").arg(i),
                                QString::fromLatin1(defaultTexts[i]), maxTextLength + 1);
        colours[i] = parse(text).value_or(colours.at(i));
    }
    return colours;
}

quint32 TrendColors::ofSet(const QList<quint32>& colours, int index)
{
    return colours.isEmpty() ? 0 : colours.at(index % colours.size());
}

} // namespace lorvane
