// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QSize>
#include <QString>
#include <functional>

class QPainter;

namespace lorvane {

/// A drawn picture as a file without a window: PNG, SVG or PDF by the suffix of the path, on
/// white. The painting is the one the window's canvas uses, so the file shows what the screen
/// shows. Needs a GUI application object (fonts); the command line makes one on the offscreen
/// platform.
class PictureFile
{
public:
    using Paint = std::function<void(QPainter& painter, const QRectF& area)>;

    /// Whether `path` ends in .png, .svg or .pdf (any case).
    static bool knownSuffix(const QString& path);
    /// Draws `paint` at `size` pixels (points for PDF) into `path`, with `title` as the
    /// document title of SVG and PDF. False when the suffix is none of the three or the file
    /// could not be written.
    static bool save(const QString& path, QSize size, const QString& title, const Paint& paint);
};

} // namespace lorvane
