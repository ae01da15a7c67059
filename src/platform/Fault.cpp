// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fault.h"

namespace lorvane {

Fault::Fault(Kind kind, QString message, QString step, QString path)
    : std::runtime_error(message.toStdString()), m_kind(kind), m_message(std::move(message)),
      m_step(std::move(step)), m_path(std::move(path))
{
}

QString Fault::report() const
{
    return m_step + QStringLiteral(" - ") + m_path;
}

} // namespace lorvane
