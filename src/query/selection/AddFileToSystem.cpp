// SPDX-License-Identifier: GPL-3.0-or-later
#include "AddFileToSystem.h"

#include "DataPointSelection.h"
#include "MeterInventory.h"
#include "MeterTable.h"
#include "SplitLogMeter.h"
#include "TopQueryBuffer.h"
#include "platform/Fault.h"
#include "store/MeterDatabase.h"
#include "store/MeterMessages.h"
#include "store/SchemaUpgrade.h"
#include "store/UpgradeLadder.h"

#include <QFileInfo>

namespace lorvane {

AddFileToSystem::AddFileToSystem(MeterTable& table, TopQueryBuffer& buffer,
                                 DataPointSelection& points, QString scratchPath)
    : m_table(table), m_buffer(buffer), m_points(points), m_scratchPath(std::move(scratchPath))
{
}

AddFileToSystem::Outcome AddFileToSystem::run(const QString& givenPath, const QString& givenName,
                                              int meterIndex, LoadProgress* progress)
{
    Outcome outcome;
    if (meterIndex < 0 || meterIndex >= m_table.maxDevices())
        return outcome;

    QString path = givenPath;
    QString name = givenName;
    m_table.setMeter2Selectable(true);
    if (SplitLogMeter::isDeviceMasterLog(path)) {
        // The marker file stands for its folder; the meter is read through its system event
        // log, and a split-log meter is shown alone.
        m_table.setDeviceMasterLog(path);
        path = SplitLogMeter::systemEventPath(givenPath);
        name = QFileInfo(path).fileName();
        m_table.setLastFolder(QFileInfo(givenPath).absolutePath());
        m_table.setMeter2Selectable(false);
    } else {
        m_table.setDeviceMasterLog(QString());
    }

    try {
        bool readOnly = false;
        double version = 0;
        {
            MeterDatabase meter(path, QStringLiteral("BlockLoadDB"));
            QString refusal;
            if (SchemaUpgrade::BlockLoadDB(meter, refusal)) {
                outcome.messages << refusal;
                return outcome;
            }
            readOnly = meter.readOnlyAttribute();
            version = meter.version();
        }
        SchemaUpgrade::checkVersion(version, path);
        if (readOnly) {
            outcome.messages << MeterMessages::readOnlyAttribute(name);
            // The ladder writes in place, so a file its owner marked read-only keeps its
            // version; below the newest layout it cannot be read and is refused here.
            if (!UpgradeLadder::stepsFrom(version).isEmpty()) {
                outcome.messages << MeterMessages::needsUpgrade(name, version);
                return outcome;
            }
        } else if (SchemaUpgrade::upgrade(path, progress).cancelled) {
            outcome.messages << MeterMessages::upgradeCancelled(name);
            return outcome;
        }

        MeterDatabase meter(path);
        QString refusal;
        if (SchemaUpgrade::versionGuard(meter, refusal)) {
            outcome.messages << refusal;
            return outcome;
        }
        SchemaUpgrade::compareWithScratch(m_scratchPath, meter);
        const DeviceRecord record = MeterInventory::read(meter, meterIndex);
        m_table.setDevice(meterIndex, record);
        m_buffer.ClearTopQueryBuffer(true);
        m_points.markUnselected();
        outcome.added = true;
    } catch (const Fault& fault) {
        if (SchemaUpgrade::endsProgram(fault))
            throw;
        outcome.messages << fault.message();
    }
    return outcome;
}

} // namespace lorvane
