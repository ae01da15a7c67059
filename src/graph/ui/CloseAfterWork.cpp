// SPDX-License-Identifier: GPL-3.0-or-later
#include "CloseAfterWork.h"

#include "platform/WorkGuard.h"

#include <QMdiSubWindow>
#include <QPointer>

namespace lorvane {

bool CloseAfterWork::defer(WorkGuard& work, QWidget* window)
{
    if (!work.busy())
        return false;
    work.stopThen([target = QPointer<QWidget>(window)] {
        if (!target)
            return;
        auto* frame = qobject_cast<QMdiSubWindow*>(target->parentWidget());
        frame ? frame->close() : target->close();
    });
    return true;
}

} // namespace lorvane
