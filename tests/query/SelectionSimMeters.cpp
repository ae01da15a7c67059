// SPDX-License-Identifier: GPL-3.0-or-later
#include "SelectionSimMeters.h"

#include "support/TestMeters.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <gtest/gtest.h>

namespace lorvane::test {

namespace {

const QTemporaryDir& written()
{
    static const QTemporaryDir folder;
    static const bool done = [] {
        const QStringList common =
            smallMeterArguments() +
            QStringList{QStringLiteral("--schema-version"), QStringLiteral("9.0")};
        for (const QString& kind :
             {QStringLiteral("standard"), QStringLiteral("talmo"), QStringLiteral("recorder"),
              QStringLiteral("basic"), QStringLiteral("split")}) {
            const QString out = kind == QStringLiteral("split")
                                    ? folder.filePath(QStringLiteral("Feeder15"))
                                    : folder.filePath(kind + QStringLiteral(".DB"));
            if (!simulate(
                    QStringList{QStringLiteral("--kind"), kind, QStringLiteral("--out"), out} +
                    common))
                return false;
        }
        return true;
    }();
    (void)done;
    return folder;
}

void copyTree(const QString& from, const QString& to)
{
    QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        const QString target = to + file.mid(from.size());
        QDir().mkpath(QFileInfo(target).absolutePath());
        QFile::copy(file, target);
    }
}

} // namespace

SelectionSimMeters::SelectionSimMeters()
{
    m_scratch = scratchDatabase(m_dir, 4545);
}

QString SelectionSimMeters::meter(const QString& kind)
{
    const QString target = m_dir.filePath(QStringLiteral("copy%1/%2.DB").arg(++m_copies).arg(kind));
    QDir().mkpath(QFileInfo(target).absolutePath());
    QFile::copy(written().filePath(kind + QStringLiteral(".DB")), target);
    return target;
}

QString SelectionSimMeters::splitMeter()
{
    const QString target = m_dir.filePath(QStringLiteral("copy%1/Feeder15").arg(++m_copies));
    copyTree(written().filePath(QStringLiteral("Feeder15")), target);
    return target + QStringLiteral("/Feeder15.dml");
}

} // namespace lorvane::test
