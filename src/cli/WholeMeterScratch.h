// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LoadProgress.h"
#include "query/engine/QueryContext.h"
#include "store/TempQueryDatabase.h"

#include <QTemporaryDir>
#include <memory>

namespace lorvane::cli {

/// A scratch database of the command's own and a query context over every day of one meter
/// (a `*.DB`, or a Device Master Log through its system event database, as the selection
/// window opens it), in one slice: what a command needs to run a view as the log grid does.
class WholeMeterScratch
{
public:
    /// `templatePath` empty: the installed template. Throws Fault (a meter file that is not
    /// there: "file not found: {path}"; a scratch folder or template that fails, a meter that
    /// does not open) or StorageError.
    WholeMeterScratch(const QString& meter, QString templatePath);
    ~WholeMeterScratch();

    QueryContext& context() { return m_context; }
    TempQueryDatabase& scratch() { return *m_scratch; }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<TempQueryDatabase> m_scratch;
    SilentProgress m_progress;
    QueryContext m_context;
};

} // namespace lorvane::cli
