// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QDir>
#include <QWidget>

namespace lorvane::test {

/// Saves `widget` as `{name}.png` in the build tree's screenshot folder, after the pending
/// paint events; false when the picture could not be written.
inline bool saveScreenshot(QWidget* widget, const QString& name)
{
    QApplication::processEvents();
    const QString folder = QStringLiteral(LORVANE_SCREENSHOT_DIR);
    QDir().mkpath(folder);
    return widget->grab().save(folder + u'/' + name + QStringLiteral(".png"));
}

} // namespace lorvane::test
