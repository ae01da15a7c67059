// SPDX-License-Identifier: GPL-3.0-or-later
#include "WholeMeterScratch.h"

#include "MeterArguments.h"
#include "ScratchTemplate.h"
#include "platform/Fault.h"
#include "store/StampedTime.h"

#include <QFileInfo>
#include <limits>

namespace lorvane::cli {

WholeMeterScratch::WholeMeterScratch(const QString& meter, QString templatePath)
{
    if (templatePath.isEmpty())
        templatePath = installedTemplate();
    // Opened as the selection window opens it (a Device Master Log through its system event
    // database); the views then find its other logs beside it.
    const std::optional<LogFileEntry> entry =
        QFileInfo(meter).isFile() ? MeterArguments::open(meter, 0) : std::nullopt;
    if (!entry)
        throw Fault(Fault::Kind::FileMissing, QStringLiteral("file not found: ") + meter,
                    QStringLiteral("open"), meter);
    if (!m_folder.isValid())
        throw Fault(Fault::Kind::Other,
                    QStringLiteral("cannot make a scratch folder: ") + m_folder.errorString(),
                    QStringLiteral("scratch"), m_folder.path());
    m_scratch = createScratch(templatePath, m_folder.path());
    // Every record of the file, whatever its day, in one slice.
    m_context.scratch = m_scratch.get();
    m_context.files << *entry;
    m_context.start = StampedTime::parseClock(QStringLiteral("1980-01-01 00:00:00"));
    m_context.end = StampedTime::parseClock(QStringLiteral("2099-12-31 23:59:59"));
    m_context.tempLogRecSize = std::numeric_limits<int>::max();
    m_context.progress = &m_progress;
}

WholeMeterScratch::~WholeMeterScratch()
{
    // A scratch file that cannot be deleted is left to the temporary folder's removal.
    try {
        if (m_scratch)
            m_scratch->closeAndDelete();
    } catch (...) {
    }
}

} // namespace lorvane::cli
