// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/TempQueryDatabase.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

using namespace lorvane;

namespace {

QString shippedTemplate()
{
    return test::dataFolder() + QStringLiteral("/Resource/LorvaneTempQuery.DB");
}

/// A running copy of the program as far as the scratch folder can tell: a process that made
/// its working file and holds it.
class Holder
{
public:
    explicit Holder(const QString& scratchFolder)
    {
        m_process.start(test::programPath(QStringLiteral("scratch_holder")),
                        {shippedTemplate(), scratchFolder});
        if (m_process.waitForStarted(10000) && m_process.waitForReadyRead(20000))
            m_path = QString::fromUtf8(m_process.readLine()).trimmed();
    }
    ~Holder() { kill(); }

    /// Ends the process the hard way, as a crash would: no clean-up runs.
    void kill()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.kill();
        m_process.waitForFinished(10000);
    }

    qint64 processId() const { return m_process.processId(); }
    const QString& path() const { return m_path; }
    QString error() { return QString::fromUtf8(m_process.readAllStandardError()); }

private:
    QProcess m_process;
    QString m_path;
};

void writeFile(const QString& path)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("left behind");
}

} // namespace

TEST(ScratchCleanup, RunningCopiesKeepTheirFilesAndStaleOnesGo)
{
    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("TempQuery"));
    ASSERT_TRUE(QDir().mkpath(folder));

    Holder first(folder);
    Holder second(folder);
    ASSERT_FALSE(first.path().isEmpty()) << qPrintable(first.error());
    ASSERT_FALSE(second.path().isEmpty()) << qPrintable(second.error());
    EXPECT_NE(first.path(), second.path());
    EXPECT_TRUE(first.path().endsWith(QStringLiteral("_PID_%1.TempQuery").arg(first.processId())));
    EXPECT_TRUE(
        second.path().endsWith(QStringLiteral("_PID_%1.TempQuery").arg(second.processId())));

    // Left over by earlier crashed runs: a plain and a hidden working file, and a copy a crash
    // interrupted before it was renamed (a stale ".part" was never removed); other files stay.
    const QStringList stale{
        folder + QStringLiteral("/tempqueryfile_2020_1_2_3_4_5_PID_1.TempQuery"),
        folder + QStringLiteral("/.tempqueryfile_2020_1_2_3_4_6_PID_2.TempQuery"),
        folder + QStringLiteral("/tempqueryfile_2020_1_2_3_4_7_PID_3.TempQuery.part")};
    const QString unrelated = folder + QStringLiteral("/notes.txt");
    for (const QString& path : stale + QStringList{unrelated})
        writeFile(path);

    // This process's own file is never touched by its own clean-up.
    auto own = TempQueryDatabase::create(shippedTemplate(), folder, 999999);

    EXPECT_EQ(TempQueryDatabase::removeStaleFiles(folder), 3);
    for (const QString& path : {first.path(), second.path(), own->path(), unrelated})
        EXPECT_TRUE(QFileInfo::exists(path)) << qPrintable(path);
    for (const QString& path : stale)
        EXPECT_FALSE(QFileInfo::exists(path)) << qPrintable(path);
    own->database().execute(QStringLiteral("DELETE FROM AllQueries"));

    // A killed copy leaves its file; the next clean-up takes it and only it.
    first.kill();
    EXPECT_TRUE(QFileInfo::exists(first.path()));
    EXPECT_EQ(TempQueryDatabase::removeStaleFiles(folder), 1);
    EXPECT_FALSE(QFileInfo::exists(first.path()));
    EXPECT_TRUE(QFileInfo::exists(second.path()));
    EXPECT_TRUE(QFileInfo::exists(own->path()));

    own->closeAndDelete();
    second.kill();
    EXPECT_EQ(TempQueryDatabase::removeStaleFiles(folder), 1);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("notes.txt")});
    EXPECT_EQ(TempQueryDatabase::removeStaleFiles(dir.filePath(QStringLiteral("absent"))), 0);
}
