// SPDX-License-Identifier: GPL-3.0-or-later
#include "query/selection/LogTree.h"
#include "store/MeterMessages.h"
#include "store/SchemaCatalog.h"
#include "support/ScopedStringCatalog.h"

#include <gtest/gtest.h>

using namespace lorvane;

namespace {

// Every text the program composes so far, with fixed parts around it.
QStringList composedTexts()
{
    LogTreeEntry entry;
    entry.firstStart = QStringLiteral("3/1/2024 0:00:00");
    entry.lastEnd = QStringLiteral("3/8/2024 0:00:00");
    return {MeterMessages::damaged(QStringLiteral("AllLogs"), QStringLiteral("m.DB")),
            MeterMessages::readOnlyAttribute(QStringLiteral("m.DB")),
            MeterMessages::fileMissing(QStringLiteral("/x/m.DB")),
            MeterMessages::notADatabase(QStringLiteral("/x/m.DB")),
            MeterMessages::cannotReadVersion(),
            MeterMessages::invalidVersion(9.1),
            MeterMessages::olderThan(QStringLiteral("m.DB"), 7.2, QStringLiteral("7.5")),
            MeterMessages::cannotBeUpgraded(QStringLiteral("m.DB"), 7.2),
            MeterMessages::newerThanSystem(8.6, QStringLiteral("base"), 9.0, QStringLiteral("new")),
            MeterMessages::updatingTo83(),
            entry.text()};
}

} // namespace

TEST(StringCatalogRouting, EnglishStaysAsItWas)
{
    test::ScopedStringCatalog scoped(nullptr);
    EXPECT_EQ(
        composedTexts(),
        QStringList({"This database is damaged. Table:  AllLogs\nDatabase: m.DB",
                     "m.DB file attribute is read-only.",
                     "/x/m.DB has a length of zero or does not exist at the specified "
                     "location",
                     "This database is damaged.\nDatabase: /x/m.DB",
                     "Cannot read current database version.\nProgram will end. Please try again.",
                     "Invalid database version 9.1 \nProgram will end.",
                     "Program cannot open this database file.\nm.DB\nVersion 7.2\nis older than "
                     "version 7.5.",
                     "Current database file:\nm.DB\nVersion 7.2\ncannot be upgraded.  Please start "
                     "with a new file.",
                     "The DB file you have selected is newer than your system`s DB.\nYou current "
                     "software will not be able to open it.\nSoftware upgrade may be "
                     "required.\nSystem DB,   v8.6, base\nSelected DB, v9.0, new",
                     "Updating database to v8.3, please wait. This could take several minutes.",
                     "From 3/1/2024 0:00:00 to 3/8/2024 0:00:00"}));
    EXPECT_EQ(SchemaCatalog::logDisplayNames().at(3), "SnapShot Log");
    EXPECT_EQ(SchemaCatalog::logDisplayNames().at(0), "");
    EXPECT_EQ(SchemaCatalog::snapshotTypeName(25), "Transients");
    EXPECT_EQ(SchemaCatalog::snapshotTypeName(26), "");
}

TEST(StringCatalogRouting, EveryTextComesOutInGerman)
{
    QStringList englishDisplay = SchemaCatalog::logDisplayNames();
    QStringList englishTypes = SchemaCatalog::snapshotTypeNames();
    test::ScopedStringCatalog scoped(
        std::make_unique<StringCatalog>(test::ScopedStringCatalog::germanDatabase()));
    ASSERT_FALSE(stringCatalog().inactive());

    EXPECT_EQ(
        composedTexts(),
        QStringList({"Diese Datenbank ist beschädigt. Tabelle:  AllLogs\nDatenbank: m.DB",
                     "m.DB Dateiattribut ist schreibgeschützt.",
                     "/x/m.DB hat die Länge null oder existiert nicht am angegebenen Ort",
                     "Diese Datenbank ist beschädigt.\nDatenbank: /x/m.DB",
                     "Die aktuelle Datenbankversion kann nicht gelesen werden.\nDas Programm wird "
                     "beendet. Bitte versuchen Sie es erneut.",
                     "Ungültige Datenbankversion 9.1 \nDas Programm wird beendet.",
                     "Das Programm kann diese Datenbankdatei nicht öffnen.\nm.DB\nVersion 7.2\nist "
                     "älter als Version 7.5.",
                     "Aktuelle Datenbankdatei:\nm.DB\nVersion 7.2\nkann nicht aktualisiert werden. "
                     " Bitte beginnen Sie mit einer neuen Datei.",
                     "Die gewählte DB-Datei ist neuer als die DB Ihres Systems.\nIhre aktuelle "
                     "Software kann sie nicht öffnen.\nMöglicherweise ist ein Software-Update "
                     "erforderlich.\nSystem-DB,   v8.6, base\nGewählte DB, v9.0, new",
                     "Datenbank wird auf v8.3 aktualisiert, bitte warten. Dies kann mehrere "
                     "Minuten dauern.",
                     "Von 3/1/2024 0:00:00 bis 3/8/2024 0:00:00"}));

    const QStringList display = SchemaCatalog::logDisplayNames();
    const QStringList types = SchemaCatalog::snapshotTypeNames();
    ASSERT_EQ(display.size(), englishDisplay.size());
    ASSERT_EQ(types.size(), englishTypes.size());
    EXPECT_EQ(display.at(0), "");
    for (int i = 1; i < display.size(); ++i)
        EXPECT_NE(display.at(i), englishDisplay.at(i)) << englishDisplay.at(i).toStdString();
    for (int i = 0; i < types.size(); ++i)
        EXPECT_NE(types.at(i), englishTypes.at(i)) << englishTypes.at(i).toStdString();
    EXPECT_EQ(display.at(10), "Netzqualitätsprotokoll");
    EXPECT_EQ(SchemaCatalog::snapshotTypeName(7), "Flicker (kurz)");
}
