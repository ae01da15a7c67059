// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/StringCatalog.h"

#include "platform/RegistryAccess.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "support/ScopedStringCatalog.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <optional>

using namespace lorvane;

namespace {

const char* const dbidTable = "CREATE TABLE DBID (pFontName TEXT, pFileVer TEXT, "
                              "pFontCharSet INTEGER, pIsUnicode INTEGER, LastRun TEXT);";
const char* const mainTable =
    "CREATE TABLE MAIN (IndexValue INTEGER, TextValue TEXT, TranslatedValue TEXT);";

// A small translation database: ids up to 200, a null and an empty translation, an id
// without a translation, and a name with an apostrophe that has no id of its own.
QString writeTranslations(const QTemporaryDir& dir, const QString& name, const QString& script)
{
    const QString path = dir.filePath(name);
    SqliteDatabase db(path, SqliteDatabase::Mode::Create);
    db.executeScript(script);
    return path;
}

QString writeFullDatabase(const QTemporaryDir& dir)
{
    return writeTranslations(
        dir, QStringLiteral("Lorvane_gr.DB"),
        QString::fromLatin1(dbidTable) + QString::fromLatin1(mainTable) +
            QStringLiteral(
                "INSERT INTO DBID VALUES ('Arial Greek', '2.3', 161, -1, '2024-03-01 08:15:00');"
                "INSERT INTO MAIN VALUES (100, 'Open', 'Άνοιγμα');"
                "INSERT INTO MAIN VALUES (120, 'Close', NULL);"
                "INSERT INTO MAIN VALUES (140, 'Empty', '');"
                "INSERT INTO MAIN VALUES (160, 'Save', 'Αποθήκευση');"
                "INSERT INTO MAIN VALUES (180, 'Operator''s Limit', 'Όριο χειριστή');"
                "INSERT INTO MAIN VALUES (200, 'Print', 'Εκτύπωση');"));
}

// Sets (or, with no value, unsets) an environment variable for one scope.
class ScopedVariable
{
public:
    ScopedVariable(QByteArray name, const std::optional<QByteArray>& value)
        : m_name(std::move(name)), m_wasSet(qEnvironmentVariableIsSet(m_name.constData())),
          m_saved(qgetenv(m_name.constData()))
    {
        set(value);
    }
    ~ScopedVariable() { set(m_wasSet ? std::optional(m_saved) : std::nullopt); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void set(const std::optional<QByteArray>& value) const
    {
        if (value)
            qputenv(m_name.constData(), *value);
        else
            qunsetenv(m_name.constData());
    }

    QByteArray m_name;
    bool m_wasSet;
    QByteArray m_saved;
};

} // namespace

TEST(StringCatalog, InactiveCatalogueGivesEveryDefault)
{
    QTemporaryDir dir;
    QFile garbage(dir.filePath(QStringLiteral("garbage.DB")));
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    garbage.write(QByteArray(4096, 'x'));
    garbage.close();

    // "NONE" is the setting's default: no file of that name, English.
    for (const QString& lookupFile :
         {QStringLiteral("NONE"), dir.filePath(QStringLiteral("missing.DB")), dir.path(),
          garbage.fileName()}) {
        StringCatalog catalog(lookupFile);
        EXPECT_TRUE(catalog.inactive()) << lookupFile.toStdString();
        EXPECT_EQ(catalog.translate(QStringLiteral("100"), QStringLiteral("Open")), "Open");
        EXPECT_EQ(catalog.translate(QStringLiteral("999999"), QStringLiteral("Voltage")),
                  "Voltage");
        EXPECT_EQ(catalog.fontName(), "no_font");
        EXPECT_FALSE(catalog.appliesFont());
        EXPECT_EQ(catalog.lastRun(), QString());
    }

    // Before start-up installs one, and after a test installs none, the helper is English.
    test::ScopedStringCatalog scoped(nullptr);
    EXPECT_TRUE(stringCatalog().inactive());
    EXPECT_EQ(userText("200001", "This database is damaged."), "This database is damaged.");
    EXPECT_EQ(userTextByName(QStringLiteral("Operator's Limit")), "Operator's Limit");
}

TEST(StringCatalog, ConfiguredDatabaseTranslatesWithAndWithoutPreload)
{
    QTemporaryDir dir;
    const QString path = writeFullDatabase(dir);

    StringCatalog preloaded(path, StringCatalog::Preload::Yes);
    StringCatalog onDemand(path, StringCatalog::Preload::No);
    EXPECT_TRUE(preloaded.preloaded());
    EXPECT_FALSE(onDemand.preloaded());

    for (StringCatalog* catalog : {&preloaded, &onDemand}) {
        EXPECT_FALSE(catalog->inactive());
        EXPECT_EQ(catalog->fontName(), "Arial Greek");
        EXPECT_EQ(catalog->fileVersion(), "2.3");
        EXPECT_EQ(catalog->fontCharset(), 161);
        EXPECT_TRUE(catalog->isUnicode());
        EXPECT_TRUE(catalog->appliesFont());
        EXPECT_EQ(catalog->lastRun(), "2024-03-01 08:15:00");
        EXPECT_EQ(catalog->greatestId(), 200);
        EXPECT_EQ(catalog->folder(), dir.path());
        EXPECT_EQ(catalog->fileName(), "Lorvane_gr.DB");
    }

    // Every kind of id, each asked twice so that the second answer comes from the cache.
    const QList<std::pair<QString, QString>> asked{{"100", "Open"},
                                                   {"120", "Close"},
                                                   {"140", "Empty"},
                                                   {"160", "Save"},
                                                   {"200", "Print"},
                                                   {"201", "Beyond"},
                                                   {"150", "Gap"},
                                                   {"abc", "Not a number"},
                                                   {"-5", "Negative"},
                                                   {"000100", "Open with zeros"},
                                                   {"999999", "Operator's Limit"},
                                                   {"999999", "Unknown name"}};
    for (int round = 0; round < 2; ++round) {
        for (const auto& [id, english] : asked) {
            EXPECT_EQ(preloaded.translate(id, english), onDemand.translate(id, english))
                << id.toStdString() << " round " << round;
        }
    }

    EXPECT_EQ(onDemand.translate("100", "Open"), "Άνοιγμα");
    EXPECT_EQ(onDemand.translate("000100", "Open"), "Άνοιγμα");
    // A null or empty translation gives the default, and so does an id above the greatest
    // id, an id between rows and an id that is no number.
    EXPECT_EQ(onDemand.translate("120", "Close"), "Close");
    EXPECT_EQ(onDemand.translate("140", "Empty"), "Empty");
    EXPECT_EQ(onDemand.translate("201", "Beyond"), "Beyond");
    EXPECT_EQ(onDemand.translate("150", "Gap"), "Gap");
    EXPECT_EQ(onDemand.translate("abc", "Not a number"), "Not a number");
    // The apostrophe is bound, not pasted into the statement.
    EXPECT_EQ(onDemand.translate("999999", "Operator's Limit"), "Όριο χειριστή");
    EXPECT_EQ(onDemand.translate("999999", "Unknown name"), "Unknown name");
    EXPECT_EQ(onDemand.translate("999999", ""), "");

    test::ScopedStringCatalog scoped(std::make_unique<StringCatalog>(path));
    EXPECT_EQ(userText("160", "Save"), "Αποθήκευση");
    EXPECT_EQ(userText("160", QStringLiteral("Save")), "Αποθήκευση");
    EXPECT_EQ(userTextByName(QStringLiteral("Operator's Limit")), "Όριο χειριστή");
}

TEST(StringCatalog, IncompleteDatabasesGiveDefaultsSilently)
{
    QTemporaryDir dir;
    const QString withoutMain = writeTranslations(
        dir, QStringLiteral("nomain.DB"),
        QString::fromLatin1(dbidTable) +
            QStringLiteral("INSERT INTO DBID VALUES (NULL, NULL, NULL, NULL, NULL);"));
    const QString withoutDbid =
        writeTranslations(dir, QStringLiteral("nodbid.DB"),
                          QString::fromLatin1(mainTable) +
                              QStringLiteral("INSERT INTO MAIN VALUES (7, 'Open', 'Ouvrir');"));
    const QString emptyMain =
        writeTranslations(dir, QStringLiteral("empty.DB"),
                          QString::fromLatin1(dbidTable) + QString::fromLatin1(mainTable));

    for (const auto preload : {StringCatalog::Preload::Yes, StringCatalog::Preload::No}) {
        StringCatalog noMain(withoutMain, preload);
        // The file is there, so the catalogue is active; its nulls keep the defaults.
        EXPECT_FALSE(noMain.inactive());
        EXPECT_EQ(noMain.fontName(), "no_font");
        EXPECT_EQ(noMain.fileVersion(), "");
        EXPECT_EQ(noMain.fontCharset(), 0);
        EXPECT_FALSE(noMain.isUnicode());
        EXPECT_FALSE(noMain.appliesFont());
        EXPECT_EQ(noMain.lastRun(), "");
        EXPECT_EQ(noMain.greatestId(), -1);
        EXPECT_EQ(noMain.translate("7", "Open"), "Open");
        EXPECT_EQ(noMain.translate("999999", "Voltage"), "Voltage");

        StringCatalog noDbid(withoutDbid, preload);
        EXPECT_FALSE(noDbid.inactive());
        EXPECT_EQ(noDbid.fontName(), "no_font");
        EXPECT_EQ(noDbid.lastRun(), "");
        EXPECT_EQ(noDbid.translate("7", "Open"), "Ouvrir");
        EXPECT_EQ(noDbid.translate("999999", "Open"), "Ouvrir");

        StringCatalog empty(emptyMain, preload);
        EXPECT_EQ(empty.greatestId(), -1);
        EXPECT_EQ(empty.translate("0", "Zero"), "Zero");
    }
}

TEST(StringCatalog, DeliveredGermanDatabase)
{
    const QString path = test::ScopedStringCatalog::germanDatabase();
    ASSERT_TRUE(QFile::exists(path)) << path.toStdString();
    test::ScopedStringCatalog scoped(std::make_unique<StringCatalog>(path));
    EXPECT_FALSE(stringCatalog().inactive());
    EXPECT_FALSE(stringCatalog().appliesFont());
    // One English word, two meanings: by id the event class, by name the data point group.
    EXPECT_EQ(userText("210100", "Power"), "Versorgung");
    EXPECT_EQ(userTextByName(QStringLiteral("Power")), "Leistung");
    EXPECT_EQ(userTextByName(QStringLiteral("Power Factor")), "Leistungsfaktor");
    EXPECT_EQ(userTextByName(QStringLiteral("Van")), "Van");
}

TEST(StringCatalog, LookupFileComesFromTheUsersSettings)
{
    const QByteArray variable =
        RegistryAccess::environmentName(StringCatalog::settingKey).toLatin1();
    ASSERT_EQ(variable, "LORVANE_REG_LOOKUPFILE");
    QTemporaryDir configHome;
    const ScopedVariable noUserFiles("XDG_CONFIG_HOME", configHome.path().toLocal8Bit());
    const auto configured = [] {
        return RegistryAccess().readUserSetting(
            StringCatalog::settingApplication, StringCatalog::settingSection,
            StringCatalog::settingKey, StringCatalog::noLookupFile);
    };
    {
        const ScopedVariable unset(variable, std::nullopt);
        EXPECT_EQ(configured(), "NONE");
        EXPECT_TRUE(StringCatalog(configured()).inactive());
    }
    const ScopedVariable german(variable,
                                test::ScopedStringCatalog::germanDatabase().toLocal8Bit());
    StringCatalog catalog(configured());
    EXPECT_FALSE(catalog.inactive());
    EXPECT_EQ(catalog.translate("200003", "Database:"), "Datenbank:");
}
