// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane::cli {

/// The scratch template the commands make their scratch database from when no
/// `--template` is given: the one installed beside the program
/// (`{bin}/../share/lorvane/Resource/LorvaneTempQuery.DB`).
QString installedTemplate();

} // namespace lorvane::cli
