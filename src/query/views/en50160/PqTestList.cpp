// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqTestList.h"

#include "PqTestStatus.h"
#include "platform/Fault.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/selection/SplitLogMeter.h"
#include "store/MeterDatabase.h"
#include "store/StampedTime.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

namespace {

const char* const statusColumns[] = {"S_Freq", "S_LSV",      "S_FVF", "S_Flicker",
                                     "S_SVU",  "S_Harmonic", "S_THD"};
constexpr int enLog = 16;

QString step()
{
    return QStringLiteral("ListPQTests");
}

QString versionText(double version)
{
    return QString::number(version, 'g', 7);
}

/// The refusal of a database below 8.6, named as the user knows it.
[[noreturn]] void refuseVersion(const QString& name, double version, const QString& path)
{
    throw Fault(Fault::Kind::Version,
                userText("610001", "We are sorry but the current database") + u' ' + name + u' ' +
                    userText("610002", "with a version of") + u' ' + versionText(version) + u' ' +
                    userText("610003", "is not valid for the EN50160 feature") + u'\n' +
                    userText("610004", "you will need a v8.6 or higher. Please contact QLM for "
                                       "more details. Thank you for your time") +
                    u'.',
                step(), path);
}

[[noreturn]] void readError(const QString& path)
{
    throw Fault(Fault::Kind::Other,
                userText("610005", "There was an Error, Please contact QLM for assistance") +
                    QStringLiteral(", Err Code : 5435"),
                step(), path);
}

double readVersion(SqliteDatabase& db, const QString& path)
{
    try {
        const QVariant version = db.scalar(QStringLiteral("Select [Version] from ID_TABLE"));
        return version.isNull() ? -1 : version.toDouble();
    } catch (const std::exception&) {
        readError(path);
    }
}

bool belowMinimum(double version)
{
    // Compared in single precision, as the version has always been kept.
    return float(version) < PqTestList::minimumVersion;
}

qint64 nextId(SqliteDatabase& db, const QString& sql)
{
    const QVariant max = db.scalar(sql);
    return max.isNull() ? 1 : max.toLongLong() + 1;
}

/// Copies the tests of one meter file inside the range; returns the next detail id.
qint64 copyTests(SqliteDatabase& scratch, qint64 listId, qint64 detailId, const QString& meterName,
                 MeterDatabase& meter, const QDateTime& start, const QDateTime& end)
{
    SqliteDatabase& db = meter.db();
    const bool withVoltage =
        db.tableHasField(QStringLiteral("AllPQTestLogs"), QStringLiteral("nominalvoltage"));
    QString columns = QStringLiteral(
        "ID_PQTest,StartTime,EndTime,Freq,S_Freq,S_LSV,S_FVF,S_Flicker,S_SVU,S_Harmonic,S_THD");
    if (withVoltage)
        columns += QStringLiteral(", nominalvoltage");
    SqlStatement select =
        db.prepare(QStringLiteral("Select %1 FROM AllPQTestLogs WHERE StartTime >= ? And "
                                  "EndTime <= ? ORDER by StartTime")
                       .arg(columns));
    select.bindAll({StampedTime::storedText(start), StampedTime::storedText(end)});
    SqlStatement insert = scratch.prepare(QStringLiteral(
        "Insert into PQTestLogsDetail(PQTestLogsDetail_ID, PQTestLogs_ID, MeterName, "
        "StartTime, EndTime, SourceDB, SourceDB_idon, Freq, S_Freq, S_LSV, S_FVF, S_Flicker, "
        "S_SVU, S_Harmonic, S_THD, nominalvoltage) Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"));
    while (select.next()) {
        QVariantList values{detailId++,      listId,       meterName,       select.value(1),
                            select.value(2), meter.path(), select.value(0), select.value(3)};
        for (int i = 4; i <= 10; ++i)
            values << select.value(i);
        // A meter without the column leaves the scratch default, which no range test passes.
        values << (withVoltage ? select.value(11) : QVariant(0));
        insert.bindAll(values);
        insert.run();
        insert.reset();
    }
    return detailId;
}

QString statusHeading(const char* text)
{
    return QStringLiteral("   ") + QString::fromLatin1(text) + QStringLiteral("   ");
}

} // namespace

QString PqTestList::testLogFile(const LogFileEntry& meter)
{
    if (meter.deviceTypeId != SplitLogMeter::deviceTypeId)
        return meter.dbPath;
    return SplitLogMeter::logFilePath(SplitLogMeter::dmlFolderOfLogFile(meter.dbPath), enLog);
}

GridTable PqTestList::list(TempQueryDatabase& scratch, const QList<LogFileEntry>& meters,
                           const QDateTime& start, const QDateTime& end)
{
    QList<const LogFileEntry*> used;
    for (const LogFileEntry& meter : meters) {
        if (meter.used && !meter.dbPath.isEmpty())
            used << &meter;
    }
    if (used.isEmpty())
        throw Fault(Fault::Kind::Other,
                    userText("610006", "Please select at least one database file"), step(), {});

    SqliteDatabase& db = scratch.database();
    const double scratchVersion = readVersion(db, scratch.path());
    if (belowMinimum(scratchVersion))
        refuseVersion(QStringLiteral("LorvaneTempQuery.DB"), scratchVersion, scratch.path());

    db.execute(QStringLiteral("Delete from PQTestLogsMain"));
    const qint64 listId =
        nextId(db, QStringLiteral("Select max(PQTestLogs_ID) as maxID from PQTestLogsMain"));
    db.execute(QStringLiteral("Insert into PQTestLogsMain(PQTestLogs_ID, SourcePathA, "
                              "SourcePathB) Values(?, ?, ?)"),
               {listId, testLogFile(*used.first()),
                used.size() > 1 ? testLogFile(*used.at(1)) : QString()});
    // A listing shows the tests of this run only.
    db.execute(QStringLiteral("Delete from PQTestLogsDetail"));

    for (const LogFileEntry* entry : used) {
        const QString path = testLogFile(*entry);
        MeterDatabase meter(path, step());
        const double version = readVersion(meter.db(), path);
        if (belowMinimum(version)) {
            db.execute(QStringLiteral("Delete from PQTestLogsMain"));
            refuseVersion(path, version, path);
        }
        const qint64 detailId = nextId(
            db, QStringLiteral("Select max(PQTestLogsDetail_ID) as maxID from PQTestLogsDetail"));
        meter.guarded(step(), [&] {
            return copyTests(db, listId, detailId, entry->hardwareName, meter, start, end);
        });
    }
    return grid(db);
}

GridTable PqTestList::grid(SqliteDatabase& scratch)
{
    GridTable table;
    table.caption = userText("406042", "EN50160 / IEC 61000-4-30 Information");
    table.columns = {userText("610010", "Start Time"),
                     userText("610011", "End Time"),
                     userText("610012", "Device Name"),
                     userText("610013", "Nom Freq"),
                     userText("610014", "Nom Voltage"),
                     statusHeading("Freq Fluc"),
                     statusHeading("LSV"),
                     statusHeading("FVF"),
                     statusHeading("Flicker"),
                     statusHeading("SVU"),
                     statusHeading("Harmonic"),
                     statusHeading("THD"),
                     QStringLiteral("SourceDB"),
                     QStringLiteral("SourceDB_idon")};
    SqlStatement select = scratch.prepare(
        QStringLiteral("select StartTime, EndTime, MeterName, Freq, NominalVoltage, S_Freq, "
                       "S_LSV, S_FVF, S_Flicker, S_SVU, S_Harmonic, S_THD, SourceDB, "
                       "SourceDB_idon from pqtestlogsdetail Order By [StartTime], "
                       "PQTestLogsDetail_ID"));
    while (select.next()) {
        const double frequency = select.real(3);
        QStringList row{select.text(0), select.text(1), select.text(2),
                        QString::number(frequency, 'g', 15),
                        nominalVoltageText(select.value(4), frequency)};
        QVariantMap keys{
            {QStringLiteral("SourceDB"), select.text(12)},
            {QStringLiteral("SourceDB_idon"), select.integer(13)},
            {QStringLiteral("StartTime"), select.text(0)},
            {QStringLiteral("EndTime"), select.text(1)},
            {QStringLiteral("MeterName"), select.text(2)},
            {QStringLiteral("Freq"), frequency},
            {QStringLiteral("NominalVoltage"), nominalVoltage(select.value(4), frequency)}};
        for (int i = 0; i < 7; ++i) {
            const QVariant stored = select.value(5 + i);
            row << PqTestStatus::text(PqTestStatus::of(stored));
            keys.insert(QString::fromLatin1(statusColumns[i]), stored);
        }
        row << select.text(12) << QString::number(select.integer(13));
        table.rows << row;
        table.rowKeys << keys;
    }
    return table;
}

double PqTestList::nominalVoltage(const QVariant& stored, double frequency)
{
    if (!stored.isNull()) {
        const double value = stored.toDouble();
        if (value >= 40 && value <= 600)
            return value;
    }
    if (frequency == 50)
        return 230;
    if (frequency == 60)
        return 120;
    return 0;
}

QString PqTestList::nominalVoltageText(const QVariant& stored, double frequency)
{
    const double value = nominalVoltage(stored, frequency);
    return value == 0 ? QString() : QString::number(value, 'g', 15) + QStringLiteral(" V");
}

} // namespace lorvane
