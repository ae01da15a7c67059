// SPDX-License-Identifier: GPL-3.0-or-later
#include "ApplyFont.h"

#include "platform/StringCatalog.h"
#include "platform/UserText.h"

#include <QApplication>
#include <QFont>

namespace lorvane {

void ApplyFont()
{
    const StringCatalog& catalog = stringCatalog();
    if (!catalog.appliesFont())
        return;
    // The character set of the old font model has no counterpart: a font family covers the
    // scripts it has glyphs for.
    QFont font = QApplication::font();
    font.setFamilies({catalog.fontName()});
    QApplication::setFont(font);
}

} // namespace lorvane
