// SPDX-License-Identifier: GPL-3.0-or-later
#include "SchemaUpgrade.h"

#include "IdTable.h"
#include "MeterMessages.h"
#include "UpgradeLadder.h"
#include "platform/Fault.h"
#include "platform/SqlIdentifier.h"

#include <QFileInfo>
#include <cmath>

namespace lorvane {

namespace {

const double firstVersion = 7.5;
const double lastStepVersion = 8.6;

bool same(double a, double b)
{
    return std::abs(a - b) < 1e-9;
}

bool below(double a, double b)
{
    return a < b - 1e-9;
}

} // namespace

double SchemaUpgrade::GetDB_Version(const QString& path)
{
    const QString step = QStringLiteral("GetDB_Version");
    try {
        SqliteDatabase db(path, SqliteDatabase::Mode::ReadWrite);
        return IdTable::version(db);
    } catch (const std::exception& e) {
        MeterDatabase::rethrow(step, path, e);
    }
}

UpgradeStep::Outcome SchemaUpgrade::runStep(const QString& path, const UpgradeStep& step,
                                            LoadProgress& progress)
{
    try {
        SqliteDatabase db(path, SqliteDatabase::Mode::ReadWrite);
        db.beginTransaction();
        try {
            if (!same(IdTable::version(db), step.source)) {
                db.rollback();
                return UpgradeStep::Outcome::NotAtSource;
            }
            if (!step.changes(db, progress)) {
                db.rollback();
                return UpgradeStep::Outcome::Cancelled;
            }
            db.execute(step.closingStatement(QDateTime::currentDateTime()));
            db.commit();
            return UpgradeStep::Outcome::Ran;
        } catch (...) {
            db.rollback();
            throw;
        }
    } catch (const std::exception& e) {
        MeterDatabase::rethrow(step.name, path, e);
    }
}

void SchemaUpgrade::checkVersion(double version, const QString& path)
{
    const QString step = QStringLiteral("GetDB_Version");
    if (version <= 0)
        throw Fault(Fault::Kind::Version, MeterMessages::cannotReadVersion(), step, path);
    // 7.8 was never released by the download tool; a file claiming it is not to be trusted.
    if (below(version, firstVersion) || same(version, 7.8))
        throw Fault(Fault::Kind::Version, MeterMessages::invalidVersion(version), step, path);
}

bool SchemaUpgrade::endsProgram(const Fault& fault)
{
    return fault.kind() == Fault::Kind::Version && fault.step() == QLatin1String("GetDB_Version");
}

UpgradeResult SchemaUpgrade::upgrade(const QString& path, LoadProgress* progress)
{
    SilentProgress silent;
    LoadProgress& watcher = progress ? *progress : silent;
    const QFileInfo info(path);
    const QString open = QStringLiteral("AddFileToSystem");
    if (!info.isFile())
        throw Fault(Fault::Kind::FileMissing, MeterMessages::fileMissing(path), open, path);
    // The read-only mark is the file owner's word that the file stays as it is.
    if (!(info.permissions() & QFileDevice::WriteOwner))
        throw Fault(Fault::Kind::ReadOnly, MeterMessages::readOnlyAttribute(info.fileName()), open,
                    path);

    UpgradeResult result;
    result.from = GetDB_Version(path);
    checkVersion(result.from, path);

    const QList<UpgradeStep> steps = UpgradeLadder::stepsFrom(result.from);
    for (qsizetype i = 0; i < steps.size(); ++i) {
        const UpgradeStep& step = steps.at(i);
        watcher.advance(i, steps.size());
        // Each step fills its own share of the bar, the long 8.3 step row by row.
        ProgressShare share(watcher, double(i) / double(steps.size()),
                            double(i + 1) / double(steps.size()));
        const UpgradeStep::Outcome outcome = runStep(path, step, share);
        if (outcome == UpgradeStep::Outcome::Cancelled) {
            result.cancelled = true;
            break;
        }
        if (outcome == UpgradeStep::Outcome::Ran)
            result.steps << step.name;
    }
    result.to = GetDB_Version(path);

    MeterDatabase meter(path);
    QString message;
    if (BlockLoadDB(meter, message))
        throw Fault(Fault::Kind::Version, message, QStringLiteral("BlockLoadDB"), path);
    if (versionGuard(meter, message))
        throw Fault(Fault::Kind::Version, message, QStringLiteral("VersionGuard"), path);
    return result;
}

bool SchemaUpgrade::BlockLoadDB(MeterDatabase& meter, QString& message)
{
    const double version = meter.version();
    // The wording names 7.6 although the limit is 7.5; the file's users know it so.
    if (below(version, firstVersion))
        message = MeterMessages::olderThan(meter.fileName(), version, QStringLiteral("7.6"));
    else if (same(version, 7.55))
        message = MeterMessages::cannotBeUpgraded(meter.fileName(), version);
    else
        return false;
    return true;
}

bool SchemaUpgrade::versionGuard(MeterDatabase& meter, QString& message)
{
    const double version = meter.version();
    if (!below(version, firstVersion))
        return false;
    message = MeterMessages::olderThan(meter.fileName(), version, QStringLiteral("7.5"));
    return true;
}

int SchemaUpgrade::compareWithScratch(const QString& scratchPath, MeterDatabase& meter)
{
    const QString step = QStringLiteral("UpdateLorvaneTempQuery");
    double scratchVersion = 0;
    QString scratchNote;
    try {
        SqliteDatabase scratch(scratchPath, SqliteDatabase::Mode::ReadOnly);
        scratchVersion = IdTable::version(scratch);
        scratchNote = IdTable::note(scratch);
    } catch (const std::exception& e) {
        MeterDatabase::rethrow(step, scratchPath, e);
    }
    const double fileVersion = meter.version();
    if (!below(scratchVersion, fileVersion))
        return 0;
    if (below(scratchVersion, lastStepVersion))
        throw Fault(
            Fault::Kind::Version,
            MeterMessages::newerThanSystem(scratchVersion, scratchNote, fileVersion, meter.note()),
            step, meter.path());
    // Counted in tenths so that 9.1 - 8.6 is 5 and not 4.999...
    const auto count = int(std::llround(fileVersion * 10) - std::llround(scratchVersion * 10));
    for (int i = 1; i <= count; ++i)
        UpdateLorvaneTempQuery(scratchPath, i);
    return count;
}

void SchemaUpgrade::UpdateLorvaneTempQuery(const QString& path, int step)
{
    if (step != 1)
        return;
    try {
        SqliteDatabase scratch(path, SqliteDatabase::Mode::ReadWrite);
        UpgradeStep toV8_7;
        toV8_7.target = 8.7;
        scratch.execute(toV8_7.closingStatement(QDateTime::currentDateTime()));
    } catch (const std::exception& e) {
        MeterDatabase::rethrow(QStringLiteral("UpdateLorvaneTempQuery"), path, e);
    }
}

} // namespace lorvane
