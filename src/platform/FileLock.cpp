// SPDX-License-Identifier: GPL-3.0-or-later
#include "FileLock.h"

#include <QFile>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace lorvane {

FileLock::FileLock(QString path) : m_path(std::move(path))
{
}

FileLock::~FileLock()
{
    unlock();
}

bool FileLock::tryLock(Open open)
{
    if (m_fd >= 0)
        return true;
    m_errorText.clear();
    m_deniedAccess = false;
    const QByteArray name = QFile::encodeName(m_path);
    // flock() rather than fcntl() locks: the database engine uses fcntl() locks on the same
    // files, and the two kinds do not interfere on Linux.
    const int flags = open == Open::Create ? O_RDWR | O_CREAT | O_CLOEXEC : O_RDONLY | O_CLOEXEC;
    const int fd = ::open(name.constData(), flags, 0644);
    if (fd < 0) {
        m_deniedAccess = errno == EACCES || errno == EROFS || errno == EPERM;
        m_errorText = QString::fromLocal8Bit(std::strerror(errno));
        return false;
    }
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        m_errorText = QString::fromLocal8Bit(std::strerror(errno));
        ::close(fd);
        return false;
    }
    m_fd = fd;
    return true;
}

void FileLock::unlock()
{
    if (m_fd < 0)
        return;
    ::flock(m_fd, LOCK_UN);
    ::close(m_fd);
    m_fd = -1;
}

} // namespace lorvane
