// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/TempQueryDatabase.h"

#include <QString>
#include <QTemporaryDir>
#include <memory>

namespace lorvane::test {

/// Small meters written once per test program by lorvane-sim (schema 9.0), copied for each
/// test so that the ladder and the test's own changes never reach another test, and a scratch
/// database of the delivered template.
class SelectionSimMeters
{
public:
    SelectionSimMeters();

    /// A fresh copy of the meter of `kind` (standard, talmo, recorder, basic): its path.
    QString meter(const QString& kind);
    /// A fresh copy of the split-log meter's folder: the path of its `.dml`.
    QString splitMeter();
    QString scratchPath() const { return m_scratch->path(); }
    TempQueryDatabase& scratch() { return *m_scratch; }
    const QTemporaryDir& dir() const { return m_dir; }

private:
    QTemporaryDir m_dir;
    std::unique_ptr<TempQueryDatabase> m_scratch;
    int m_copies = 0;
};

} // namespace lorvane::test
