// SPDX-License-Identifier: GPL-3.0-or-later
#include "InputGrid.h"

#include "platform/SqlIdentifier.h"
#include "platform/UserText.h"
#include "query/engine/GridReader.h"
#include "query/engine/SortOptions.h"

namespace lorvane {

GridTable InputGrid::fill(SqliteDatabase& scratch, const QueryNumbers& numbers,
                          const SortState& sort)
{
    using F = GridColumn::Form;
    const QList<GridColumn> columns{
        {userText("404001", "Start Date/Time"), QStringLiteral("A.[DT1]"), F::Stamp,
         QStringLiteral("A.[ms1]")},
        {userText("404002", "End Date/Time"), QStringLiteral("A.[DT2]"), F::Stamp,
         QStringLiteral("A.[ms2]")},
        {userText("404003", "Start Date/Time mode"), QStringLiteral("A.[DT1mode]")},
        {userText("404004", "End Date/Time mode"), QStringLiteral("A.[DT2mode]")},
        {userText("404005", "Duration ms"), QStringLiteral("A.[Duration]")},
        {userText("404006", "Device Index"), QStringLiteral("A.[DeviceIndex]")},
        {userText("404007", "Device Name"), QStringLiteral("A.[DeviceIndex]"), F::Device},
        {userText("404008", "Index"), QStringLiteral("A.[Index]")},
        {userText("404009", "Module Index"), QStringLiteral("A.[ModuleIndex]")},
        {userText("404010", "Input Index"), QStringLiteral("A.[InputIndex]")},
        {userText("404011", "Module Name"), QStringLiteral("I.[ModuleLabel]")},
        {userText("404012", "Input Name"), QStringLiteral("I.[InputLabel]")},
        {userText("404013", "Description Code"), QStringLiteral("A.[DescriptionCode]")},
        {userText("404014", "State"), QStringLiteral("A.[Status]")},
        {userText("404015", "State Name"), QStringLiteral("I.[TextLabel_0]")},
        {userText("404016", "State Name2"), QStringLiteral("I.[TextLabel_1]")},
    };
    const QList<QPair<QString, QString>> keys{
        {QStringLiteral("DeviceIndex"), QStringLiteral("A.[DeviceIndex]")},
        {QStringLiteral("Index"), QStringLiteral("A.[Index]")},
        {QStringLiteral("ModuleIndex"), QStringLiteral("A.[ModuleIndex]")},
        {QStringLiteral("InputIndex"), QStringLiteral("A.[InputIndex]")},
        {QStringLiteral("DT1"), QStringLiteral("A.[DT1]")},
        {QStringLiteral("ms1"), QStringLiteral("A.[ms1]")},
        {QStringLiteral("DT2"), QStringLiteral("A.[DT2]")},
        {QStringLiteral("ms2"), QStringLiteral("A.[ms2]")},
        {QStringLiteral("Status"), QStringLiteral("A.[Status]")},
    };
    const QString from =
        QStringLiteral("%1 AS A INNER JOIN %2 AS I ON (A.[InputIndex] = I.[InputIndex]) AND "
                       "(A.[ModuleIndex] = I.[ModuleIndex]) AND (A.[Index] = I.[Index]) AND "
                       "(A.[DeviceIndex] = I.[DeviceIndex])")
            .arg(SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("InputLogA_"))),
                 SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("InputLogDataItem_"))));
    return GridReader::read(scratch, numbers, userText("404017", "Show Inputs"), columns, keys,
                            from, SortOptions::orderBy(LogKind::Inputs, sort));
}

} // namespace lorvane
