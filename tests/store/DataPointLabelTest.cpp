// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/DataPointLabel.h"

#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "platform/StringCatalog.h"
#include "store/DeviceDataLookUp.h"
#include "store/DeviceScaledFormats.h"
#include "store/ScaledEnergyFormat.h"
#include "support/ScopedStringCatalog.h"

#include <QLocale>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

const QString shippedDictionary = QStringLiteral(LORVANE_BIN_DIR "/QLMNameList.DB");

/// A dictionary whose names tell which table and row they came from. Rows that would be found
/// if a range border were off by one carry "wrong" names.
void writeFixtureDictionary(const QString& path)
{
    SqliteDatabase db(path, SqliteDatabase::Mode::Create);
    db.executeScript(QStringLiteral(R"(
        CREATE TABLE Types (ID INTEGER, ReferenceID INTEGER, Name TEXT);
        INSERT INTO Types VALUES (1, 7, 'Head one'), (61, 61, 'Sixty-one'),
            (249, 249, 'Head 249'), (250, 250, 'wrong'), (999, 999, 'wrong'),
            (1500, 1500, 'wrong'), (1750, 1750, 'Head 1750'), (1751, 1751, NULL),
            (1752, 1752, 'No table');
        CREATE TABLE Type_61 (ID INTEGER, Name TEXT);
        INSERT INTO Type_61 VALUES (0, 'item zero');
        CREATE TABLE Type_7 (ID INTEGER, Name TEXT);
        INSERT INTO Type_7 VALUES (0, 'item zero');
        CREATE TABLE Type_1 (ID INTEGER, Name TEXT);
        INSERT INTO Type_1 VALUES (0, 'wrong: the head row names Type_7');
        CREATE TABLE Type_249 (ID INTEGER, Name TEXT);
        INSERT INTO Type_249 VALUES (199, 'last below Namelist');
        CREATE TABLE Type_250 (ID INTEGER, Name TEXT);
        INSERT INTO Type_250 VALUES (0, 'wrong');
        CREATE TABLE Type_999 (ID INTEGER, Name TEXT);
        INSERT INTO Type_999 VALUES (199, 'wrong');
        CREATE TABLE Type_1500 (ID INTEGER, Name TEXT);
        INSERT INTO Type_1500 VALUES (0, 'wrong'), (1, 'wrong');
        CREATE TABLE Type_1750 (ID INTEGER, Name TEXT);
        INSERT INTO Type_1750 VALUES (0, 'first above BrinMF20'), (1, NULL);
        CREATE TABLE Type_1751 (ID INTEGER, Name TEXT);
        INSERT INTO Type_1751 VALUES (0, 'item of a nameless head');
        CREATE TABLE Namelist (GlobalID INTEGER, Label TEXT);
        INSERT INTO Namelist VALUES (49999, 'wrong'), (50000, 'Namelist first'),
            (50001, NULL), (199999, 'Namelist last'), (200000, 'wrong');
        CREATE TABLE DeviceModbusMap (GlobalID INTEGER, Description TEXT);
        INSERT INTO DeviceModbusMap VALUES (199999, 'wrong'), (200000, 'Modbus first'),
            (300000, 'Modbus last'), (300001, 'wrong');
        CREATE TABLE BrinMF20 (GlobalID INTEGER, Description TEXT);
        INSERT INTO BrinMF20 VALUES (300000, 'wrong'), (300001, 'Brin first'),
            (349999, 'Brin last'), (350000, 'wrong');
    )"));
}

} // namespace

TEST(DataPointLabel, RangeBordersPickTheirTable)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("names.DB"));
    writeFixtureDictionary(path);
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
    const auto label = [&db](qint32 id) { return DataPointLabel::text(db, id).toStdString(); };

    EXPECT_EQ(label(0), "0");
    EXPECT_EQ(label(199), "199");
    EXPECT_EQ(DataPointLabel::head(200), 1);
    EXPECT_EQ(DataPointLabel::item(200), 0);
    EXPECT_EQ(label(200), "Head one item zero");
    EXPECT_EQ(label(399), "N/A 399");
    EXPECT_EQ(label(49999), "Head 249 last below Namelist");
    EXPECT_EQ(label(50000), "Namelist first");
    EXPECT_EQ(label(199999), "Namelist last");
    EXPECT_EQ(label(200000), "Modbus first");
    EXPECT_EQ(label(300000), "Modbus last");
    EXPECT_EQ(label(300001), "Brin first");
    EXPECT_EQ(label(349999), "Brin last");
    EXPECT_EQ(label(350000), "Head 1750 first above BrinMF20");
    // Above 450000 there is no table of its own: the two-level way, which names nothing here.
    EXPECT_EQ(label(450001), "N/A 450001");

    // Negative ids: integer division keeps the sign, so every head is below 1.
    EXPECT_EQ(DataPointLabel::head(-201), -1);
    EXPECT_EQ(DataPointLabel::item(-201), -1);
    for (const qint32 id : {-1, -199, -200, -201, -50000, std::numeric_limits<qint32>::min()})
        EXPECT_EQ(label(id), std::to_string(id));
    EXPECT_EQ(label(std::numeric_limits<qint32>::max()),
              "N/A " + std::to_string(std::numeric_limits<qint32>::max()));
}

TEST(DataPointLabel, NullNamesAndMissingRowsAndTables)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("names.DB"));
    writeFixtureDictionary(path);
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);

    EXPECT_EQ(DataPointLabel::text(db, 50001), QString());                     // NULL Label
    EXPECT_EQ(DataPointLabel::text(db, 350001), QStringLiteral("Head 1750 ")); // NULL item
    EXPECT_EQ(DataPointLabel::text(db, 350200), QStringLiteral(" item of a nameless head"));
    EXPECT_EQ(DataPointLabel::text(db, 12345), QStringLiteral("N/A 12345")); // no Types row
    EXPECT_EQ(DataPointLabel::text(db, 12200), QStringLiteral("Sixty-one item zero"));
    EXPECT_EQ(DataPointLabel::text(db, 12201), QStringLiteral("N/A 12201"));   // no item row
    EXPECT_EQ(DataPointLabel::text(db, 350400), QStringLiteral("N/A 350400")); // no Type_1752
    EXPECT_EQ(DataPointLabel::text(db, 50002), QStringLiteral("N/A 50002"));
    EXPECT_EQ(DataPointLabel::text(db, 250000), QStringLiteral("N/A 250000"));

    // A dictionary without the name tables names nothing, and says so per point.
    SqliteDatabase empty(dir.filePath(QStringLiteral("empty.DB")), SqliteDatabase::Mode::Create);
    empty.execute(QStringLiteral("CREATE TABLE Devices (ID INTEGER, DeviceName TEXT)"));
    for (const qint32 id : {20617, 50000, 200000, 300001})
        EXPECT_EQ(DataPointLabel::text(empty, id), DataPointLabel::notAvailable(id));
}

TEST(DataPointLabel, ShippedDictionaryNamesTheFixedPointsAndTranslates)
{
    SqliteDatabase db(shippedDictionary, SqliteDatabase::Mode::ReadOnly);
    EXPECT_EQ(DataPointLabel::text(db, 20617), QStringLiteral("Voltage Van"));
    EXPECT_EQ(DataPointLabel::text(db, 21203), QStringLiteral("Power kW Total"));
    EXPECT_EQ(DataPointLabel::text(db, 27406), QStringLiteral("Flicker Plt Vc"));
    EXPECT_EQ(DataPointLabel::text(db, 202006), QStringLiteral("kWh Delivered (Modbus)"));
    for (const qint32 id : {20617, 20621, 20625, 21017, 21021, 21025, 21203, 21204, 21205, 26003,
                            26004, 26005, 27401, 27402, 27403, 27404, 27405, 27406})
        EXPECT_FALSE(DataPointLabel::text(db, id).startsWith(QStringLiteral("N/A"))) << id;

    // Both halves of a two-level name are looked up by their English text.
    QTemporaryDir dir;
    const QString translations = dir.filePath(QStringLiteral("de.DB"));
    {
        SqliteDatabase t(translations, SqliteDatabase::Mode::Create);
        t.executeScript(QStringLiteral(R"(
            CREATE TABLE DBID (pFontName TEXT, pFileVer TEXT, pFontCharSet INTEGER,
                               pIsUnicode INTEGER, LastRun TEXT);
            INSERT INTO DBID VALUES ('no_font', '1', 0, -1, NULL);
            CREATE TABLE MAIN (IndexValue INTEGER, TextValue TEXT, TranslatedValue TEXT);
            INSERT INTO MAIN VALUES (999999, 'Voltage', 'Spannung'), (999999, 'Current', 'Strom'),
                                    (999999, 'Ia', 'I1');
        )"));
    }
    test::ScopedStringCatalog german(std::make_unique<StringCatalog>(translations));
    EXPECT_EQ(DataPointLabel::text(db, 20617), QStringLiteral("Spannung Van"));
    EXPECT_EQ(DataPointLabel::text(db, 21017), QStringLiteral("Strom I1"));
}

TEST(DictionaryLookUps, ShippedTablesLoadAndAnswer)
{
    SqliteDatabase db(shippedDictionary, SqliteDatabase::Mode::ReadOnly);
    DeviceDataLookUp lookUp;
    lookUp.load(db);
    ASSERT_FALSE(lookUp.isEmpty());
    for (std::size_t i = 1; i < lookUp.entries().size(); ++i)
        EXPECT_LT(lookUp.entries()[i - 1].index, lookUp.entries()[i].index);
    EXPECT_EQ(lookUp.find(21404)->type, DeviceDataLookUp::PowerFactorBand);
    EXPECT_EQ(lookUp.find(26003)->type, DeviceDataLookUp::EnergyRegister);
    EXPECT_EQ(lookUp.find(20617)->type, DeviceDataLookUp::PlainNumber);
    EXPECT_FALSE(lookUp.find(1).has_value());

    DeviceScaledFormats formats;
    formats.load(db);
    ASSERT_FALSE(formats.isEmpty());
    const auto kwh = formats.find(26003);
    ASSERT_TRUE(kwh.has_value());
    EXPECT_EQ(kwh->formatId, 4);
    EXPECT_FALSE(formats.find(20617).has_value());
}

TEST(DictionaryLookUps, EmptyMissingAndDamagedTables)
{
    QTemporaryDir dir;
    SqliteDatabase db(dir.filePath(QStringLiteral("d.DB")), SqliteDatabase::Mode::Create);
    db.executeScript(QStringLiteral(R"(
        CREATE TABLE DeviceDataLookUp_3_1 (LookUpIndex INTEGER, DataIndex INTEGER,
                                           DataType INTEGER, LookUpRule INTEGER);
        CREATE TABLE DeviceScaledFormats_3_1 (ScaleIndex INTEGER, DataIndex INTEGER,
                                              FormatID INTEGER);
        INSERT INTO DeviceScaledFormats_3_1 VALUES (2, 26003, NULL), (1, 26004, 4);
    )"));
    DeviceDataLookUp lookUp;
    lookUp.load(db);
    EXPECT_TRUE(lookUp.isEmpty());

    DeviceScaledFormats formats;
    formats.load(db);
    ASSERT_EQ(formats.entries().size(), 2u);
    EXPECT_EQ(formats.entries()[0].dataIndex, 26004); // scale class 1 first
    EXPECT_EQ(formats.find(26003)->formatId, 0);      // NULL reads as 0

    // A fractional or oversized number is a damaged table; what was loaded stays.
    db.execute(QStringLiteral("INSERT INTO DeviceScaledFormats_3_1 VALUES (1, 26005, 2.5)"));
    EXPECT_THROW(formats.load(db), StorageError);
    EXPECT_EQ(formats.entries().size(), 2u);
    db.execute(QStringLiteral("DELETE FROM DeviceScaledFormats_3_1 WHERE FormatID = 2.5"));
    db.execute(QStringLiteral("INSERT INTO DeviceScaledFormats_3_1 VALUES (1, 4294967296, 1)"));
    EXPECT_THROW(formats.load(db), StorageError);

    db.execute(QStringLiteral("DROP TABLE DeviceDataLookUp_3_1"));
    EXPECT_THROW(lookUp.load(db), StorageError);
}

TEST(ScaledEnergyFormat, PatternsAndThePrefixItsUnitsName)
{
    const char* patterns[] = {"#,##0",      "#,##0.0",     "#,##0.00",     "#,##0.000",
                              "#,##0.0000", "#,##0.00000", "#,##0.000000", "#,##0.0000000"};
    for (int decimals = 0; decimals <= 7; ++decimals)
        EXPECT_EQ(ScaledEnergyFormat(1, decimals).pattern(), QLatin1String(patterns[decimals]));
    EXPECT_EQ(ScaledEnergyFormat(1, 12).decimals(), 7);
    EXPECT_EQ(ScaledEnergyFormat(1, -3).pattern(), QStringLiteral("#,##0"));
    const char* prefixes[] = {"", "k", "M", "G", ""};
    for (int units = 0; units <= 4; ++units)
        EXPECT_EQ(ScaledEnergyFormat(units, 0).unitPrefix(), QLatin1String(prefixes[units]));
}
