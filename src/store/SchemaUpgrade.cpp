// SPDX-License-Identifier: GPL-3.0-or-later
#include "SchemaUpgrade.h"

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

/// Version of ID_Table's first row on an open database; -1 without a row.
double versionOf(SqliteDatabase& db)
{
    const QVariant value = db.scalar(QStringLiteral("SELECT [Version] FROM %1 LIMIT 1")
                                         .arg(SqlIdentifier::quote(QStringLiteral("ID_Table"))));
    return value.isValid() ? value.toDouble() : -1.0;
}

QString noteOf(SqliteDatabase& db)
{
    return db
        .scalar(QStringLiteral("SELECT [Note] FROM %1 LIMIT 1")
                    .arg(SqlIdentifier::quote(QStringLiteral("ID_Table"))))
        .toString();
}

} // namespace

double SchemaUpgrade::GetDB_Version(const QString& path)
{
    const QString step = QStringLiteral("GetDB_Version");
    try {
        SqliteDatabase db(path, SqliteDatabase::Mode::ReadWrite);
        return versionOf(db);
    } catch (const std::exception& e) {
        MeterDatabase::rethrow(step, path, e);
    }
}

UpgradeStep::Outcome SchemaUpgrade::runStep(const QString& path, const UpgradeStep& step,
                                            const UpgradeProgress& progress)
{
    try {
        SqliteDatabase db(path, SqliteDatabase::Mode::ReadWrite);
        db.beginTransaction();
        try {
            if (!same(versionOf(db), step.source)) {
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

UpgradeResult SchemaUpgrade::upgrade(const QString& path, const UpgradeProgress& progress)
{
    const QFileInfo info(path);
    const QString open = QStringLiteral("AddFileToSystem");
    if (!info.isFile())
        throw Fault(Fault::Kind::FileMissing, MeterMessages::fileMissing(path), open, path);
    // The read-only mark is the file owner's word that the file stays as it is.
    if (!(info.permissions() & QFileDevice::WriteOwner))
        throw Fault(Fault::Kind::ReadOnly, MeterMessages::readOnlyAttribute(info.fileName()), open,
                    path);

    const QString versionStep = QStringLiteral("GetDB_Version");
    UpgradeResult result;
    result.from = GetDB_Version(path);
    if (result.from <= 0)
        throw Fault(Fault::Kind::Version, MeterMessages::cannotReadVersion(), versionStep, path);
    if (below(result.from, firstVersion) || same(result.from, 7.8))
        throw Fault(Fault::Kind::Version, MeterMessages::invalidVersion(result.from), versionStep,
                    path);

    for (const UpgradeStep& step : UpgradeLadder::stepsFrom(result.from)) {
        const UpgradeStep::Outcome outcome = runStep(path, step, progress);
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
        scratchVersion = versionOf(scratch);
        scratchNote = noteOf(scratch);
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
