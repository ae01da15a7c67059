// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "relaylogic/RelayLogicTree.h"

#include <QSize>
#include <QString>

namespace lorvane {

/// A relay logic tree as a picture file without a window: PNG, SVG or PDF by the suffix of the
/// path, drawn by RelayLogicPicture as the window draws it. Needs a GUI application object
/// (fonts); the command line makes one on the offscreen platform.
class RelayLogicPictureFile
{
public:
    /// Whether `path` ends in .png, .svg or .pdf (any case).
    static bool knownSuffix(const QString& path);
    /// Writes `tree` at `size` pixels (points for PDF) to `path`. False when the suffix is none
    /// of the three or the file could not be written.
    static bool save(const RelayLogicTree& tree, const QString& path, QSize size = {1200, 700});
};

} // namespace lorvane
