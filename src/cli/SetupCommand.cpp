// SPDX-License-Identifier: GPL-3.0-or-later
#include "SetupCommand.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "GridPrinter.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "query/views/setup/SetupRecordViews.h"

#include <QFileInfo>

namespace lorvane::cli {

int SetupCommand::run(const QStringList& arguments)
{
    QString format = QStringLiteral("csv");
    QString table;
    QString path;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& a = arguments.at(i);
        if (a == QLatin1String("--format")) {
            if (i + 1 >= arguments.size() || !GridPrinter::knownFormat(arguments.at(i + 1)))
                return CliOutput::usage(QStringLiteral("--format is csv or json"));
            format = arguments.at(++i);
        } else if (a == QLatin1String("--table")) {
            if (i + 1 >= arguments.size())
                return CliOutput::usage(QStringLiteral("--table needs a NAME"));
            table = arguments.at(++i);
        } else if (a.startsWith(QLatin1String("--")) || !path.isEmpty()) {
            return CliOutput::usage(QStringLiteral("unexpected argument: ") + a);
        } else {
            path = a;
        }
    }
    if (path.isEmpty())
        return CliOutput::usage(QStringLiteral("setup needs a FILE"));
    QStringList tables = SetupRecordViews::meterTables();
    if (!table.isEmpty()) {
        const auto known = std::find_if(tables.begin(), tables.end(), [&](const QString& t) {
            return t.compare(table, Qt::CaseInsensitive) == 0;
        });
        if (known == tables.end())
            return CliOutput::usage(QStringLiteral("unknown table: ") + table +
                                    QStringLiteral(" (tables: ") +
                                    tables.join(QStringLiteral(", ")) + u')');
        tables = QStringList{*known};
    }
    if (!QFileInfo::exists(path)) {
        CliOutput::error(QStringLiteral("file not found: ") + path);
        return FileMissing;
    }
    try {
        SqliteDatabase meter(path, SqliteDatabase::Mode::ReadOnly);
        QList<GridTable> grids;
        for (const QString& name : tables) {
            if (meter.tableExists(name))
                grids << SetupRecordViews::meterTable(meter, name);
        }
        QTextStream out(stdout);
        GridPrinter::print(out, grids, format);
        return Success;
    } catch (const StorageError& e) {
        CliOutput::error(path + QStringLiteral(": ") + QString::fromUtf8(e.what()));
        return NotADatabase;
    }
}

} // namespace lorvane::cli
