// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// An exclusive advisory lock on one file, held from a successful tryLock() until unlock() or
/// destruction. The operating system drops it when the process ends in any way, a crash
/// included, so a file whose lock can be taken belongs to no running process. The lock is per
/// open file: a second FileLock on the same file fails even inside the same process.
class FileLock
{
public:
    enum class Open
    {
        Existing, ///< the file must exist; it is never created or written
        Create,   ///< the file is created (empty, owner read-write) when missing
    };

    explicit FileLock(QString path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Takes the lock without waiting. False when another holder has it, or when the file
    /// cannot be opened (missing, or not creatable); errorText() then says why.
    bool tryLock(Open open = Open::Existing);
    /// Gives the lock up; nothing happens when it is not held.
    void unlock();

    bool isLocked() const { return m_fd >= 0; }
    const QString& path() const { return m_path; }
    /// The system's words for the last failed tryLock(); empty after a success.
    const QString& errorText() const { return m_errorText; }
    /// True when the last failed tryLock() failed for lack of write permission.
    bool deniedAccess() const { return m_deniedAccess; }

private:
    QString m_path;
    int m_fd = -1;
    QString m_errorText;
    bool m_deniedAccess = false;
};

} // namespace lorvane
