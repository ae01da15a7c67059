// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/ui/PictureCanvas.h"
#include "powergraph/paint/PGraphPalette.h"

namespace lorvane {

class PGraphSession;

/// The power graph on the screen: PGraphPicture drawn in the kit's picture canvas, so the
/// screen, the printer, the clipboard and the picture files show the same drawing.
class PGraphCanvas : public PictureCanvas
{
    Q_OBJECT

public:
    explicit PGraphCanvas(QWidget* parent = nullptr);

    /// The session drawn (kept by the caller; null draws an empty picture).
    void setSession(const PGraphSession* session);
    void setPalette(const PGraphPalette& palette);
    const PGraphPalette& graphPalette() const { return m_palette; }

protected:
    void paintPicture(QPainter& painter, const QRectF& area) override;

private:
    const PGraphSession* m_session = nullptr;
    PGraphPalette m_palette;
};

} // namespace lorvane
