// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

namespace lorvane {
class TempQueryDatabase;
}

namespace lorvane::cli {

/// The scratch template the commands make their scratch database from when no
/// `--template` is given: the one installed beside the program
/// (`{bin}/../share/lorvane/Resource/LorvaneTempQuery.DB`).
QString installedTemplate();

/// This run's scratch database in `folder`, made from `templatePath`. A template that is
/// missing or cannot be copied is a Fault that names it and its path, in the words the viewer
/// uses at its first query.
std::unique_ptr<TempQueryDatabase> createScratch(const QString& templatePath,
                                                 const QString& folder);

} // namespace lorvane::cli
