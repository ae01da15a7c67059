// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpgradeLadder.h"

#include "LogKind.h"
#include "MeterMessages.h"
#include "MeterSchema.h"
#include "SchemaCatalog.h"
#include "platform/SqlIdentifier.h"

#include <cmath>

// Field properties that the file format of the meter databases does not have are left out
// of these steps: "zero length allowed" (SQLite text columns always take an empty text),
// "required" (a column added to a table cannot become NOT NULL, and the writers fill it
// anyway) and the "Yes/No" display format (a Bit is the integer -1 or 0 whatever it shows
// as). Defaults are set where the column is made, as SQLite takes them only there; existing
// rows then read the default.

namespace lorvane {

namespace {

using T = ColumnType;

QString s(const char* text)
{
    return QString::fromLatin1(text);
}

QString q(const QString& name)
{
    return SqlIdentifier::quote(name);
}

void addColumn(SqliteDatabase& db, const QString& table, const QString& column, ColumnType type,
               const QString& defaultValue = {})
{
    QString sql = QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 %3")
                      .arg(q(table), q(column), TableLayout::sqlType(type));
    if (!defaultValue.isEmpty())
        sql += QStringLiteral(" DEFAULT ") + defaultValue;
    db.execute(sql);
}

void addNumbered(SqliteDatabase& db, const QString& table, const char* pattern, int first, int last,
                 ColumnType type)
{
    for (int i = first; i <= last; ++i)
        addColumn(db, table, QString::fromLatin1(pattern).arg(i), type);
}

/// Creates a table with the statement of its layout at the version the step brings.
void create(SqliteDatabase& db, double version, const char* table)
{
    db.executeScript(MeterSchema(version).table(s(table)).createSql());
}

bool toV7_6(SqliteDatabase& db, LoadProgress&)
{
    addColumn(db, s("PQWaveLogDataItem"), s("RecordFormat"), T::Long);
    db.execute(QStringLiteral("UPDATE [PQWaveLogDataItem] SET [RecordFormat]=-1"));
    return true;
}

bool toV7_7(SqliteDatabase& db, LoadProgress&)
{
    // Widening LSAB to 123 characters: copy through a new column, as a column's size cannot
    // be changed in place. The widened column ends up last.
    addColumn(db, s("LimitsLogDataItem"), s("LSABtmp"), T::Text);
    db.execute(QStringLiteral("UPDATE [LimitsLogDataItem] SET [LSABtmp] = [LSAB]"));
    db.execute(QStringLiteral("ALTER TABLE [LimitsLogDataItem] DROP COLUMN [LSAB]"));
    db.execute(QStringLiteral("ALTER TABLE [LimitsLogDataItem] RENAME COLUMN [LSABtmp] TO [LSAB]"));
    return true;
}

bool toV7_9(SqliteDatabase& db, LoadProgress&)
{
    // Recs is widened by replacing it; the old counts are not copied, every row restarts
    // at the default.
    addColumn(db, s("AllInputLogs"), s("RecsNew"), T::Long, s("0"));
    db.execute(QStringLiteral("ALTER TABLE [AllInputLogs] DROP COLUMN [Recs]"));
    db.execute(QStringLiteral("ALTER TABLE [AllInputLogs] RENAME COLUMN [RecsNew] TO [Recs]"));
    addColumn(db, s("AllLogs"), s("HarvesterVersion"), T::Text, s("'N/A'"));
    addColumn(db, s("AllLogs"), s("HarvesterInfo"), T::Text, s("'N/A'"));
    // The layouts carry the Condition{i} default of -1.
    for (const char* table : {"InputLogA", "InputLogDataItem", "RelayLogA", "RelayLogDataItem"})
        create(db, 7.9, table);
    return true;
}

bool toV8_0(SqliteDatabase& db, LoadProgress&)
{
    addColumn(db, s("InputLogDataItem"), s("InputFlip"), T::Long, s("0"));
    addColumn(db, s("AllLogs"), s("DownloadSoftwareInfo"), T::Text, s("'N/A'"));
    for (int i = 1; i <= 5; ++i)
        addColumn(db, s("AllLogs"), QStringLiteral("FirmwareInfo%1").arg(i), T::Text, s("'N/A'"));
    addColumn(db, s("DeviceInformation"), s("HardwareTypeName"), T::Text, s("'N/A'"));
    addColumn(db, s("RelayLogA"), s("InputStatusB"), T::Long, s("0"));
    addNumbered(db, s("RelayLogA"), "InputInfo%1", 19, 54, T::Text);
    addNumbered(db, s("RelayLogDataItem"), "LogicStr%1", 9, 44, T::Text);
    addColumn(db, s("RelayLogDataItem"), s("Hysteresis"), T::Long, s("0"));
    addColumn(db, s("RelayLogDataItem"), s("LogicControl"), T::Long, s("0"));
    return true;
}

bool toV8_1(SqliteDatabase& db, LoadProgress&)
{
    create(db, 8.1, "Flicker_MaxMin");
    return true;
}

bool toV8_2(SqliteDatabase& db, LoadProgress&)
{
    for (const char* extreme : {"Max", "Min"}) {
        for (const char* term : {"ST", "LT"}) {
            for (const char* phase : {"Va", "Vb", "Vc"})
                addColumn(db, s("Flicker_MaxMin"),
                          QStringLiteral("%1_%2_DT_%3_Status").arg(s(extreme), s(term), s(phase)),
                          T::Long);
        }
    }
    return true;
}

bool toV8_3(SqliteDatabase& db, LoadProgress& progress)
{
    addColumn(db, s("HistLogTimeIndexTmp"), s("ProfileIndex"), T::Long, s("0"));
    create(db, 8.3, "ScaledFormats");

    // The day rows are read first: the walk changes the schema, which an open read of the
    // same connection would not allow.
    QList<QString> hourTables;
    {
        SqlStatement days = db.prepare(
            QStringLiteral("Select * From [AllHistoricalLogs] Order By [LogTablesIndex] ASC"));
        while (days.next()) {
            const qint64 n = days.value(s("LogTablesIndex")).toLongLong();
            for (int h = 0; h < 24; ++h) {
                if (days.value(QStringLiteral("Hour_%1").arg(h)).toLongLong() != 0)
                    hourTables << SchemaCatalog::hourTimeIndexTable(LogKind::Snapshots, n, h);
            }
        }
    }
    const qsizetype total = hourTables.size();
    progress.status(MeterMessages::updatingTo83());
    progress.advance(0, total);
    if (progress.cancelRequested())
        return false;
    for (qsizetype i = 0; i < total; ++i) {
        const QString& table = hourTables.at(i);
        addColumn(db, table, s("ProfileIndex"), T::Long, s("0"));
        db.execute(QStringLiteral("UPDATE %1 SET [ProfileIndex] = 0").arg(q(table)));
        progress.advance(i + 1, total);
        if (progress.cancelRequested())
            return false;
    }
    return true;
}

bool toV8_4(SqliteDatabase& db, LoadProgress&)
{
    // The system event master takes the columns of the flicker master and none of its rows;
    // a copy by query keeps no column defaults, as it never did.
    db.execute(QStringLiteral("CREATE TABLE [AllSystemEventLogs] AS SELECT * FROM "
                              "[AllFlickerLogs] WHERE [LogTablesIndex] = -1"));
    db.execute(QStringLiteral("CREATE UNIQUE INDEX [AllSystemEventLogs_Index] ON "
                              "[AllSystemEventLogs] ([LogTablesIndex])"));
    db.execute(QStringLiteral("CREATE UNIQUE INDEX [AllSystemEventLogs_PrimaryKey] ON "
                              "[AllSystemEventLogs] ([Date/Time])"));
    // The layout brings the defaults of InTestMode ("No", 0), EV0 to EV7, EventType and
    // Description, and the LinkIndex index.
    create(db, 8.4, "SystemEventLogA");
    return true;
}

bool toV8_5(SqliteDatabase& db, LoadProgress&)
{
    // Only the unique index named FormatID goes; any other index of the table stays.
    QStringList drop;
    {
        SqlStatement indexes = db.prepare(QStringLiteral("PRAGMA index_list([ScaledFormats])"));
        while (indexes.next()) {
            const QString name = indexes.value(s("name")).toString();
            if (indexes.value(s("unique")).toLongLong() != 0 &&
                name.compare(s("ScaledFormats_FormatID"), Qt::CaseInsensitive) == 0)
                drop << name;
        }
    }
    for (const QString& name : drop)
        db.execute(QStringLiteral("DROP INDEX %1").arg(q(name)));
    create(db, 8.5, "HSInputLabels");
    return true;
}

bool toV8_6(SqliteDatabase& db, LoadProgress&)
{
    // The step builds the table with the statistics and bin_1 to bin_170 only: NominalVoltage
    // is there only in files whose meter wrote it, and its presence is what tells a reader
    // that the meter knows its nominal voltage.
    db.executeScript(
        MeterSchema(8.6).table(s("AllPQTestLogs")).without({s("NominalVoltage")}).createSql());
    return true;
}

bool same(double a, double b)
{
    return std::abs(a - b) < 1e-9;
}

} // namespace

const QList<UpgradeStep>& UpgradeLadder::steps()
{
    static const QList<UpgradeStep> ladder{
        {7.5, 7.6, s("UpdateDB2V7_6"), s("Update Database to V7.6, 03/17/2000"), toV7_6},
        {7.6, 7.7, s("UpdateDB2V7_7"), s("Update Database to V7.7, 06/20/2000"), toV7_7},
        {7.7, 7.9, s("UpdateDB2V7_9"), s("Update Database to V7.9, 10/06/2000"), toV7_9},
        {7.9, 8.0, s("UpdateDB2V8_0"), s("Update Database to V8.0, 08/06/2001"), toV8_0},
        {8.0, 8.1, s("UpdateDB2V8_1"), s("Update Database to V8.1, 11/19/2002"), toV8_1},
        {8.1, 8.2, s("UpdateDB2V8_2"), s("Update Database to V8.2, 01/03/2003"), toV8_2},
        {8.2, 8.3, s("UpdateDB2V8_3"), {}, toV8_3},
        {8.3, 8.4, s("UpdateDB2V8_4"), {}, toV8_4},
        {8.4, 8.5, s("UpdateDB2V8_5"), {}, toV8_5},
        {8.5, 8.6, s("UpdateDB2V8_6"), {}, toV8_6},
    };
    return ladder;
}

bool UpgradeLadder::isSource(double version)
{
    for (const UpgradeStep& step : steps()) {
        if (same(step.source, version))
            return true;
    }
    return false;
}

QList<UpgradeStep> UpgradeLadder::stepsFrom(double version)
{
    const QList<UpgradeStep>& all = steps();
    for (qsizetype i = 0; i < all.size(); ++i) {
        if (same(all.at(i).source, version))
            return all.mid(i);
    }
    return {};
}

} // namespace lorvane
