// SPDX-License-Identifier: GPL-3.0-or-later
#include "StorageError.h"

namespace lorvane {

StorageError::StorageError(Kind kind, QString path, QString detail)
    : std::runtime_error((detail + QStringLiteral(" - ") + path).toStdString()), m_kind(kind),
      m_path(std::move(path)), m_detail(std::move(detail))
{
}

} // namespace lorvane
