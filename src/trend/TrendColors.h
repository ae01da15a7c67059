// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace lorvane {

class ProfileFile;

/// The sixteen set colours of `LogGraphSettings.ini`, section `Color Set`, keys `Line0` to
/// `Line15`. A value is the platform's colour text "&hBBGGRR&" (blue in the high byte); a key
/// that is missing or unreadable keeps its default. Colours are 0xRRGGBB.
class TrendColors
{
public:
    static constexpr int count = 16;
    static constexpr int maxTextLength = 32;

    /// The defaults, `Line0` first.
    static QList<quint32> defaults();
    /// The colours of the settings file.
    static QList<quint32> read(const ProfileFile& settings);
    /// 0xRRGGBB of a colour text, or nothing for another form.
    static std::optional<quint32> parse(const QString& text);
    /// The colour text of 0xRRGGBB.
    static QString text(quint32 rgb);
    /// Set `index` takes colour `index` mod 16.
    static quint32 ofSet(const QList<quint32>& colours, int index);
};

} // namespace lorvane
