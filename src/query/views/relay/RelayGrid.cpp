// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayGrid.h"

#include "platform/SqlIdentifier.h"
#include "platform/UserText.h"
#include "query/engine/GridReader.h"
#include "query/engine/SortOptions.h"

namespace lorvane {

GridTable RelayGrid::fill(SqliteDatabase& scratch, const QueryNumbers& numbers,
                          const SortState& sort)
{
    using F = GridColumn::Form;
    const QString duration = userText("404005", "Duration ms");
    const QList<GridColumn> columns{
        {userText("404020", "Trigger Time"), QStringLiteral("A.[DT1]"), F::Stamp,
         QStringLiteral("A.[ms1]")},
        {duration, QStringLiteral("A.[Duration12]")},
        {userText("404021", "Command Time"), QStringLiteral("A.[DT2]"), F::Stamp,
         QStringLiteral("A.[ms2]")},
        {duration, QStringLiteral("A.[Duration23]")},
        {userText("404022", "Acknowledge Time"), QStringLiteral("A.[DT3]"), F::Stamp,
         QStringLiteral("A.[ms3]")},
        {userText("404023", "Trigger D/T mode"), QStringLiteral("A.[DT1mode]")},
        {userText("404024", "Command D/T mode"), QStringLiteral("A.[DT2mode]")},
        {userText("404025", "Acknowledge D/T mode"), QStringLiteral("A.[DT3mode]")},
        {userText("404026", "CK1"), QStringLiteral("A.[DT1CK]")},
        {userText("404027", "CK2"), QStringLiteral("A.[DT2CK]")},
        {userText("404028", "CK3"), QStringLiteral("A.[DT3CK]")},
        {userText("404006", "Device Index"), QStringLiteral("A.[DeviceIndex]")},
        {userText("404007", "Device Name"), QStringLiteral("A.[DeviceIndex]"), F::Device},
        {userText("404008", "Index"), QStringLiteral("A.[Index]")},
        {userText("404009", "Module Index"), QStringLiteral("A.[ModuleIndex]")},
        {userText("404029", "Relay Index"), QStringLiteral("A.[RelayIndex]")},
        {userText("404030", "Module/Card Name"), QStringLiteral("I.[ModuleLabel]")},
        {userText("404031", "Relay Name"), QStringLiteral("I.[RelayLabel]")},
        {userText("404032", "Start State"), QStringLiteral("A.[Condition0Text]")},
        {userText("404033", "End State"), QStringLiteral("A.[Condition3Text]")},
        {userText("404034", "Complete Index"), QStringLiteral("A.[GIndex]")},
    };
    const QList<QPair<QString, QString>> keys{
        {QStringLiteral("DeviceIndex"), QStringLiteral("A.[DeviceIndex]")},
        {QStringLiteral("Index"), QStringLiteral("A.[Index]")},
        {QStringLiteral("ModuleIndex"), QStringLiteral("A.[ModuleIndex]")},
        {QStringLiteral("RelayIndex"), QStringLiteral("A.[RelayIndex]")},
        {QStringLiteral("GIndex"), QStringLiteral("A.[GIndex]")},
        {QStringLiteral("DT1"), QStringLiteral("A.[DT1]")},
        {QStringLiteral("ms1"), QStringLiteral("A.[ms1]")},
    };
    const QString from =
        QStringLiteral("%1 AS A INNER JOIN %2 AS I ON (A.[RelayIndex] = I.[RelayIndex]) AND "
                       "(A.[ModuleIndex] = I.[ModuleIndex]) AND (A.[Index] = I.[Index]) AND "
                       "(A.[DeviceIndex] = I.[DeviceIndex])")
            .arg(SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("RelayLogA_"))),
                 SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("RelayLogDataItem_"))));
    return GridReader::read(scratch, numbers, userText("404035", "Show Relays"), columns, keys,
                            from, SortOptions::orderBy(LogKind::Relays, sort));
}

} // namespace lorvane
