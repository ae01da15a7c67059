// SPDX-License-Identifier: GPL-3.0-or-later
#include "StatusCommand.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "GridPrinter.h"
#include "query/views/status/DatabaseStatusView.h"

#include <QFileInfo>

namespace lorvane::cli {

int StatusCommand::run(const QStringList& arguments)
{
    QString format = QStringLiteral("csv");
    QList<LogFileEntry> files;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& a = arguments.at(i);
        if (a == QLatin1String("--format")) {
            if (i + 1 >= arguments.size() || !GridPrinter::knownFormat(arguments.at(i + 1)))
                return CliOutput::usage(QStringLiteral("--format is csv or json"));
            format = arguments.at(++i);
        } else if (a.startsWith(QLatin1String("--"))) {
            return CliOutput::usage(QStringLiteral("unknown option: ") + a);
        } else {
            LogFileEntry entry;
            entry.dbPath = a;
            entry.used = true;
            files << entry;
        }
    }
    if (files.isEmpty())
        return CliOutput::usage(QStringLiteral("status needs at least one FILE"));
    QTextStream out(stdout);
    QList<DatabaseStatusView::Unreadable> unreadable;
    const QList<GridTable> grids = DatabaseStatusView::run(files, &unreadable);
    GridPrinter::print(out, grids, format);
    out.flush();
    // Every file still gets its grid; the exit code tells of the first that could not be read.
    int code = Success;
    for (const DatabaseStatusView::Unreadable& file : unreadable) {
        const bool missing = !QFileInfo::exists(file.path);
        CliOutput::error((missing ? QStringLiteral("file not found: ")
                                  : QStringLiteral("not a meter database or damaged: ")) +
                         file.path + (missing ? QString() : QStringLiteral(": ") + file.detail));
        if (code == Success)
            code = missing ? FileMissing : NotADatabase;
    }
    return code;
}

} // namespace lorvane::cli
