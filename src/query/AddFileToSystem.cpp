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

#include <QFileInfo>
#include <cmath>

namespace lorvane {

namespace {

const QString versionStep = QStringLiteral("GetDB_Version");

/// The two version faults that end the program.
void checkVersion(double version, const QString& path)
{
    if (version <= 0)
        throw Fault(Fault::Kind::Version, MeterMessages::cannotReadVersion(), versionStep, path);
    // 7.8 was never released by the download tool; a file claiming it is not to be trusted.
    if (version < 7.5 - 1e-9 || std::abs(version - 7.8) < 1e-9)
        throw Fault(Fault::Kind::Version, MeterMessages::invalidVersion(version), versionStep,
                    path);
}

bool endsProgram(const Fault& fault)
{
    return fault.kind() == Fault::Kind::Version && fault.step() == versionStep;
}

} // namespace

AddFileToSystem::AddFileToSystem(MeterTable& table, TopQueryBuffer& buffer,
                                 DataPointSelection& points, QString scratchPath)
    : m_table(table), m_buffer(buffer), m_points(points), m_scratchPath(std::move(scratchPath))
{
}

AddFileToSystem::Outcome AddFileToSystem::run(const QString& givenPath, const QString& givenName,
                                              int meterIndex)
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
        if (readOnly)
            outcome.messages << MeterMessages::readOnlyAttribute(name);
        checkVersion(version, path);
        // The ladder writes in place; a file its owner marked read-only is read as it is.
        if (!readOnly)
            SchemaUpgrade::upgrade(path);

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
        if (endsProgram(fault))
            throw;
        outcome.messages << fault.message();
    }
    return outcome;
}

} // namespace lorvane
