// SPDX-License-Identifier: GPL-3.0-or-later
#include "FlickerGrid.h"

#include "platform/SqlIdentifier.h"
#include "platform/UserText.h"
#include "query/engine/GridReader.h"
#include "query/engine/SortOptions.h"

namespace lorvane {

GridTable FlickerGrid::fill(SqliteDatabase& scratch, const QueryNumbers& numbers,
                            const SortState& sort, const QString& dataFormat)
{
    using F = GridColumn::Form;
    QList<GridColumn> columns{
        {userText("404001", "Start Date/Time"), QStringLiteral("[FS_DT]"), F::Stamp,
         QStringLiteral("[FS_ms]")},
        {userText("404002", "End Date/Time"), QStringLiteral("[FE_DT]"), F::Stamp,
         QStringLiteral("[FE_ms]")},
        {userText("404003", "Start Date/Time mode"), QStringLiteral("[FS_DTmode]")},
        {userText("404004", "End Date/Time mode"), QStringLiteral("[FE_DTmode]")},
        {userText("404006", "Device Index"), QStringLiteral("[DeviceIndex]")},
        {userText("404007", "Device Name"), QStringLiteral("[DeviceIndex]"), F::Device},
        {userText("404008", "Index"), QStringLiteral("[Index]")},
        {userText("404040", "Status"), QStringLiteral("[F_Status]")},
    };
    // Maximum then minimum, short term then long term, phases a, b, c: the twelve extremes.
    const QString status = userText("404040", "Status");
    const QString mode = userText("404041", "mode");
    for (const char* extreme : {"Max", "Min"}) {
        for (const char* term : {"ST", "LT"}) {
            for (const char* phase : {"Va", "Vb", "Vc"}) {
                const QString e = QString::fromLatin1(extreme);
                const QString t = QString::fromLatin1(term);
                const QString p = QString::fromLatin1(phase);
                const QString name = (e == QLatin1String("Max") ? userText("404042", "Max")
                                                                : userText("404043", "Min")) +
                                     QLatin1Char(' ') +
                                     (t == QLatin1String("ST") ? userText("404044", "Pst")
                                                               : userText("404045", "Plt")) +
                                     QLatin1Char(' ') + p;
                const QString stem = e + QLatin1Char('_') + t;
                const auto column = [](const QString& text) { return SqlIdentifier::quote(text); };
                columns.append(
                    {name + QLatin1Char(' ') + status,
                     column(stem + QStringLiteral("_DT_") + p + QStringLiteral("_Status"))});
                columns.append({name + QLatin1Char(' ') + userText("404046", "Date/Time"),
                                column(stem + QStringLiteral("_DT_") + p), F::Stamp,
                                column(stem + QStringLiteral("_ms_") + p)});
                columns.append({name + QLatin1Char(' ') + mode,
                                column(stem + QStringLiteral("_DTmode_") + p)});
                columns.append({name, column(stem + QLatin1Char('_') + p), F::Number});
            }
        }
    }
    const QList<QPair<QString, QString>> keys{
        {QStringLiteral("DeviceIndex"), QStringLiteral("[DeviceIndex]")},
        {QStringLiteral("Index"), QStringLiteral("[Index]")},
        {QStringLiteral("FS_DT"), QStringLiteral("[FS_DT]")},
        {QStringLiteral("FE_DT"), QStringLiteral("[FE_DT]")},
    };
    return GridReader::read(
        scratch, numbers, userText("404047", "Show Flicker Max/Min"), columns, keys,
        SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("Flicker_MaxMin_"))),
        SortOptions::orderBy(LogKind::Flicker, sort), dataFormat);
}

} // namespace lorvane
