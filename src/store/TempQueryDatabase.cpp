// SPDX-License-Identifier: GPL-3.0-or-later
#include "TempQueryDatabase.h"

#include "IdTable.h"
#include "platform/SqlIdentifier.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <utility>

namespace lorvane {

namespace {

constexpr QFileDevice::Permissions writeBits = QFileDevice::WriteOwner | QFileDevice::WriteUser |
                                               QFileDevice::WriteGroup | QFileDevice::WriteOther;

/// Working files held by this process. The clean-up must not even open them: closing any
/// descriptor of a file drops the engine's own fcntl() locks on it for the whole process.
QSet<QString>& heldFiles()
{
    static QSet<QString> files;
    return files;
}

void setReadOnly(const QString& path, bool readOnly)
{
    const QFileDevice::Permissions now = QFile::permissions(path);
    QFile::setPermissions(path, readOnly ? now & ~writeBits
                                         : now | QFileDevice::WriteOwner | QFileDevice::WriteUser);
}

/// Writes the template's bytes into the locked, freshly created file.
void copyInto(const QString& templatePath, const QString& target)
{
    QFile source(templatePath);
    if (!source.open(QIODevice::ReadOnly))
        throw StorageError(StorageError::Kind::FileMissing, templatePath, source.errorString());
    QFile copy(target);
    if (!copy.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw StorageError(StorageError::Kind::ReadOnly, target, copy.errorString());
    while (!source.atEnd()) {
        const QByteArray block = source.read(1 << 20);
        if (block.isEmpty())
            throw StorageError(StorageError::Kind::Engine, templatePath, source.errorString());
        if (copy.write(block) != block.size())
            throw StorageError(StorageError::Kind::ReadOnly, target, copy.errorString());
    }
    if (!copy.flush())
        throw StorageError(StorageError::Kind::ReadOnly, target, copy.errorString());
}

} // namespace

TempQueryDatabase::TempQueryDatabase(QString path, std::unique_ptr<FileLock> lock)
    : m_path(std::move(path)), m_lock(std::move(lock))
{
}

TempQueryDatabase::~TempQueryDatabase()
{
    m_db.reset();
    heldFiles().remove(m_path);
}

bool TempQueryDatabase::upgradeTemplate(const QString& templatePath)
{
    if (!QFileInfo(templatePath).isFile())
        return false;
    setReadOnly(templatePath, false);
    try {
        if (!TableHasField(templatePath, QStringLiteral("PQTestLogsDetail"),
                           QStringLiteral("NominalVoltage"))) {
            SqliteDatabase database(templatePath, SqliteDatabase::Mode::ReadWrite);
            database.execute(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 INTEGER DEFAULT 0")
                                 .arg(SqlIdentifier::quote(QStringLiteral("PQTestLogsDetail")),
                                      SqlIdentifier::quote(QStringLiteral("NominalVoltage"))));
        }
    } catch (...) {
        setReadOnly(templatePath, true);
        throw;
    }
    setReadOnly(templatePath, true);
    return true;
}

QString TempQueryDatabase::workingFileName(const QDateTime& now, qint64 processId)
{
    const QDate date = now.date();
    const QTime time = now.time();
    return QStringLiteral("tempqueryfile_%1_%2_%3_%4_%5_%6_PID_%7.TempQuery")
        .arg(date.year())
        .arg(date.month())
        .arg(date.day())
        .arg(time.hour())
        .arg(time.minute())
        .arg(time.second())
        .arg(processId);
}

std::unique_ptr<TempQueryDatabase> TempQueryDatabase::create(const QString& templatePath,
                                                             const QString& scratchFolder,
                                                             qint64 processId)
{
    if (!QFileInfo(templatePath).isFile())
        throw StorageError(StorageError::Kind::FileMissing, templatePath,
                           QStringLiteral("scratch template not found"));
    if (!QDir().mkpath(scratchFolder))
        throw StorageError(StorageError::Kind::ReadOnly, scratchFolder,
                           QStringLiteral("scratch folder cannot be made"));
    const QString name = workingFileName(QDateTime::currentDateTime(), processId);
    const QString path = QDir(scratchFolder).absoluteFilePath(name);
    // The copy is built under a name the clean-up does not match and renamed when complete;
    // the lock follows the file, so no other copy ever sees it unlocked.
    const QString partial = path + QStringLiteral(".part");
    auto lock = std::make_unique<FileLock>(partial);
    if (!lock->tryLock(FileLock::Open::Create))
        throw StorageError(lock->deniedAccess() ? StorageError::Kind::ReadOnly
                                                : StorageError::Kind::Engine,
                           partial, lock->errorText());
    try {
        copyInto(templatePath, partial);
        if (QFileInfo::exists(path) && !QFile::remove(path))
            throw StorageError(StorageError::Kind::ReadOnly, path,
                               QStringLiteral("an older working file cannot be replaced"));
        if (!QFile::rename(partial, path))
            throw StorageError(StorageError::Kind::ReadOnly, path,
                               QStringLiteral("working file cannot be named"));
    } catch (...) {
        QFile::remove(partial);
        throw;
    }
    // The canonical path is what the clean-up compares with its own listing.
    std::unique_ptr<TempQueryDatabase> scratch(
        new TempQueryDatabase(QFileInfo(path).canonicalFilePath(), std::move(lock)));
    heldFiles().insert(scratch->m_path);
    try {
        scratch->m_db = std::make_unique<SqliteDatabase>(path, SqliteDatabase::Mode::ReadWrite);
        // The working file lives for one run and is deleted at its end: waiting for the disk
        // at every statement buys nothing, and a load runs thousands of them.
        scratch->m_db->executeScript(
            QStringLiteral("PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY; "
                           "PRAGMA temp_store = MEMORY; PRAGMA cache_size = -65536;"));
    } catch (...) {
        scratch->closeAndDelete();
        throw;
    }
    return scratch;
}

SqliteDatabase& TempQueryDatabase::database()
{
    if (!m_db)
        throw StorageError(StorageError::Kind::Engine, m_path,
                           QStringLiteral("scratch database is closed"));
    return *m_db;
}

double TempQueryDatabase::version()
{
    return IdTable::version(database());
}

QString TempQueryDatabase::note()
{
    return IdTable::note(database());
}

QString TempQueryDatabase::createWorkingTable(const QString& base, qint64 queryNumber, qint64 slice)
{
    const QString stem = base.endsWith(QLatin1Char('_')) ? base.chopped(1) : base;
    const QString templateTable = stem + QStringLiteral("tmp");
    if (queryNumber < 0)
        throw StorageError(StorageError::Kind::Engine, m_path,
                           QStringLiteral("negative query number for %1").arg(stem));
    const QString createText =
        database()
            .scalar(QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' AND "
                                   "name = ? COLLATE NOCASE"),
                    {templateTable})
            .toString();
    const qsizetype columnsStart = createText.indexOf(QLatin1Char('('));
    if (columnsStart < 0)
        throw StorageError(StorageError::Kind::Engine, m_path,
                           QStringLiteral("no template table %1").arg(templateTable));

    QString name = stem + QLatin1Char('_') + QString::number(queryNumber);
    if (slice >= 0)
        name += QLatin1Char('_') + QString::number(slice);
    const QString quoted = SqlIdentifier::quote(name);
    m_db->beginTransaction();
    try {
        m_db->execute(QStringLiteral("DROP TABLE IF EXISTS ") + quoted);
        m_db->execute(QStringLiteral("CREATE TABLE ") + quoted + QLatin1Char(' ') +
                      createText.mid(columnsStart));
        m_db->commit();
    } catch (...) {
        m_db->rollback();
        throw;
    }
    return name;
}

void TempQueryDatabase::closeAndDelete()
{
    m_db.reset();
    // Removed while still locked, so no other copy can take the name in between.
    QFile::remove(m_path);
    heldFiles().remove(m_path);
    if (m_lock)
        m_lock->unlock();
}

QString TempQueryDatabase::unavailable(const QString& templatePath, const StorageError& error)
{
    const QString name = QFileInfo(templatePath).fileName();
    const QString why =
        error.kind() == StorageError::Kind::FileMissing
            ? userText("200310", "The scratch template %1 is missing.").arg(name)
            : userText("200311", "The scratch database cannot be made from its template %1.")
                  .arg(name);
    QString text = why + u'\n' + userText("200312", "Template") + QStringLiteral(": ") +
                   QDir::toNativeSeparators(templatePath);
    if (error.path() != templatePath)
        text += u'\n' + QDir::toNativeSeparators(error.path());
    if (!error.detail().isEmpty())
        text += u'\n' + error.detail();
    return text;
}

int TempQueryDatabase::removeStaleFiles(const QString& scratchFolder)
{
    const QDir folder(scratchFolder);
    if (!folder.exists())
        return 0;
    int removed = 0;
    const QFileInfoList files =
        folder.entryInfoList({QStringLiteral("*.TempQuery"), QStringLiteral("*.TempQuery.part")},
                             QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    for (const QFileInfo& file : files) {
        const QString path = file.canonicalFilePath();
        if (heldFiles().contains(path))
            continue;
        FileLock lock(path);
        if (!lock.tryLock())
            continue;
        if (QFile::remove(path))
            ++removed;
    }
    return removed;
}

} // namespace lorvane
