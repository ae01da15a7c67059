// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemEventGrid.h"

#include "platform/SqlIdentifier.h"
#include "platform/UserText.h"
#include "query/engine/GridReader.h"
#include "query/engine/SortOptions.h"

namespace lorvane {

GridTable SystemEventGrid::fill(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                const SortState& sort)
{
    using F = GridColumn::Form;
    // EventType and Description hold the texts the download decoded; they are shown as stored.
    QList<GridColumn> columns{
        {userText("404046", "Date/Time"), QStringLiteral("[Date/Time]"), F::Stamp,
         QStringLiteral("[ms]")},
        {userText("404050", "Time mode"), QStringLiteral("[DTmode]")},
        {userText("404006", "Device Index"), QStringLiteral("[DeviceIndex]")},
        {userText("404007", "Device Name"), QStringLiteral("[DeviceIndex]"), F::Device},
        {userText("404008", "Index"), QStringLiteral("[Index]")},
        {userText("404051", "In Test Mode"), QStringLiteral("[InTestMode]")},
        {userText("404052", "Event Type"), QStringLiteral("[EventType]")},
        {userText("404053", "Description"), QStringLiteral("[Description]")},
        {userText("404054", "Sequence"), QStringLiteral("[Sequence]")},
    };
    for (int i = 0; i <= 7; ++i) {
        const QString ev = QStringLiteral("EV%1").arg(i);
        columns.append({ev, SqlIdentifier::quote(ev)});
    }
    const QList<QPair<QString, QString>> keys{
        {QStringLiteral("DeviceIndex"), QStringLiteral("[DeviceIndex]")},
        {QStringLiteral("Date/Time"), QStringLiteral("[Date/Time]")},
        {QStringLiteral("ms"), QStringLiteral("[ms]")},
    };
    return GridReader::read(
        scratch, numbers, userText("404055", "Show System Events"), columns, keys,
        SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("SystemEventLogA_"))),
        SortOptions::orderBy(LogKind::SystemEvent, sort));
}

} // namespace lorvane
