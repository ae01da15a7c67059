// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/FileLock.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"

#include <QDateTime>
#include <QString>
#include <memory>

namespace lorvane {

/// The private working database of one running process: a copy of the delivered template
/// `LorvaneTempQuery.DB` in the scratch folder, which every query fills and every view reads.
/// The process holds an advisory lock on its file for as long as the object lives, which is
/// how another copy's clean-up tells a live file from one left behind by a crash.
class TempQueryDatabase
{
public:
    ~TempQueryDatabase();
    TempQueryDatabase(const TempQueryDatabase&) = delete;
    TempQueryDatabase& operator=(const TempQueryDatabase&) = delete;

    /// Template upgrade at start: false when the template is missing (nothing happens);
    /// otherwise clears read-only, adds PQTestLogsDetail.NominalVoltage (INTEGER, default
    /// 0) when missing, sets read-only again, true. Throws StorageError when the column is
    /// missing and the template cannot be written (read-only again in that case too).
    static bool upgradeTemplate(const QString& templatePath);

    /// "tempqueryfile_" + Y + "_" + M + "_" + D + "_" + h + "_" + m + "_" + s + "_PID_" +
    /// pid + ".TempQuery", numbers without leading zeros, of `now` as given (local time).
    static QString workingFileName(const QDateTime& now, qint64 processId);

    /// Copies the template over the working name (present local time) in the scratch folder,
    /// which is made when missing, makes the copy writable, opens it and holds it for this
    /// process. Throws StorageError when the template cannot be copied (FileMissing for a
    /// missing template, ReadOnly for a folder that refuses the file; no file is left behind)
    /// or when the copy cannot be opened as a database (the copy is removed again).
    static std::unique_ptr<TempQueryDatabase>
    create(const QString& templatePath, const QString& scratchFolder, qint64 processId);
    /// What the user is told when create() failed with `error`: the template, its path and
    /// the reason ("The scratch template LorvaneTempQuery.DB is missing ...").
    static QString unavailable(const QString& templatePath, const StorageError& error);

    /// The open working database; only valid until closeAndDelete().
    SqliteDatabase& database();
    /// Absolute path of the working file.
    const QString& path() const { return m_path; }

    /// `Version` of ID_Table (8.6 for a fresh copy); -1 when the table has no row.
    double version();
    /// `Note` of ID_Table; empty when the table has no row.
    QString note();

    /// Makes `{base}_{Q}`, or `{base}_{Q}_{S}` when slice >= 0, from the template table
    /// `{base}tmp` (a trailing underscore of base is ignored) using the template's own CREATE
    /// text, so its columns and the DeviceIndex default of -1 come with it. A table of that
    /// name is dropped first. Returns the new table's name. Throws StorageError (Engine) when
    /// the scratch database has no such template or queryNumber is negative.
    QString createWorkingTable(const QString& base, qint64 queryNumber, qint64 slice = -1);

    /// End of run: closes the database, deletes the working file and gives up the lock.
    /// Without this call (a crash, an exception) the file stays until a later clean-up.
    void closeAndDelete();

    /// Deletes every "*.TempQuery" of the folder and every "*.TempQuery.part" a crash left in
    /// the middle of its copy, hidden ones included, that no running copy
    /// holds; files this process holds are never touched. Returns how many were removed; a
    /// missing folder or a file that cannot be deleted counts nothing and is no error.
    static int removeStaleFiles(const QString& scratchFolder);

private:
    TempQueryDatabase(QString path, std::unique_ptr<FileLock> lock);

    QString m_path;
    std::unique_ptr<FileLock> m_lock;
    std::unique_ptr<SqliteDatabase> m_db;
};

} // namespace lorvane
