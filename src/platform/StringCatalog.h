// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <memory>
#include <mutex>

namespace lorvane {

class SqliteDatabase;

/// The display string catalogue: every text the user sees is a six-digit id and an English
/// default, and a translation database may replace the default by its translation. The
/// database is SQLite with two tables, `DBID` (one row: `pFontName`, `pFileVer`,
/// `pFontCharSet`, `pIsUnicode`, `LastRun`) and `MAIN` (`IndexValue`, `TextValue`,
/// `TranslatedValue`). Without a database the catalogue is inactive and every text stays
/// English; a database that is damaged or lacks a table gives the defaults too, silently.
class StringCatalog
{
public:
    /// The id that means "no id": the English text itself is the key (names from the
    /// dictionary use it).
    static constexpr qint32 noId = 999999;
    /// Font name of a database that names none; windows keep their own font then.
    static inline const QString noFont = QStringLiteral("no_font");

    /// Where the user names the translation database: application, section, key and the
    /// default that means "none, English".
    static inline const QString settingApplication = QStringLiteral("QLMLanguages");
    static inline const QString settingSection = QStringLiteral("StringTable");
    static inline const QString settingKey = QStringLiteral("LookupFile");
    static inline const QString noLookupFile = QStringLiteral("NONE");

    enum class Preload
    {
        Yes, ///< read every translation at once: one statement instead of one per text
        No,  ///< read each id on first use
    };

    /// An inactive catalogue: every text is its default.
    StringCatalog();
    /// Opens the translation database `lookupFile` (a path with `\` or `/`). A file that does
    /// not exist (such as "NONE") or is no database leaves the catalogue inactive; a database
    /// that lacks `DBID` or `MAIN` leaves it active with the defaults of `DBID`, and every
    /// translation then gives its default. Never throws.
    explicit StringCatalog(const QString& lookupFile, Preload preload = Preload::Yes);
    ~StringCatalog();
    StringCatalog(const StringCatalog&) = delete;
    StringCatalog& operator=(const StringCatalog&) = delete;

    /// `text` translated under `id` (a number 0 to 999999 as text, "999999" to look the
    /// English text up). The default `text` comes back when the catalogue is inactive, the id
    /// is not a number, is above the greatest id of the database or is not in it, the
    /// translation is empty or null, or the database fails. Safe from any thread: the
    /// look-ups are taken one at a time.
    QString translate(const QString& id, const QString& text);

    /// True when no translation database was found: all texts are English.
    bool inactive() const { return m_inactive; }
    /// The font the translation needs (`pFontName`), "no_font" when it needs none.
    const QString& fontName() const { return m_fontName; }
    /// `pFileVer` of the database; empty when it has none.
    const QString& fileVersion() const { return m_fileVersion; }
    /// Character set of the font (`pFontCharSet`), 0 (ANSI) by default.
    qint32 fontCharset() const { return m_fontCharset; }
    /// `pIsUnicode` of the database; false by default.
    bool isUnicode() const { return m_isUnicode; }
    /// `LastRun` of `DBID`, read anew at each call; empty when null, inactive or unreadable.
    QString lastRun() const;
    /// True when a window should take `fontName` and `fontCharset`: the catalogue is active
    /// and the database names a font.
    bool appliesFont() const { return !m_inactive && m_fontName != noFont; }

    /// Path of the translation database as configured; its folder and file name.
    const QString& lookupFile() const { return m_lookupFile; }
    const QString& folder() const { return m_folder; }
    const QString& fileName() const { return m_fileName; }
    /// The greatest id of `MAIN`; -1 when inactive or unreadable.
    qint32 greatestId() const { return m_greatestId; }
    bool preloaded() const { return m_preloaded; }

private:
    void readIdentity();
    void readGreatestId();
    void preloadAll();
    QString lookUpById(qint32 id);
    QString lookUpByText(const QString& text);

    bool m_inactive = true;
    QString m_lookupFile;
    QString m_folder;
    QString m_fileName;
    bool m_preloaded = false;
    qint32 m_greatestId = -1;
    // Translations read so far by id. The ids are sparse six-digit numbers, so a hash bounded
    // by the greatest id stands in for an array of that size.
    QHash<qint32, QString> m_cache;
    QString m_fontName = noFont;
    QString m_fileVersion;
    qint32 m_fontCharset = 0;
    bool m_isUnicode = false;
    std::unique_ptr<SqliteDatabase> m_db;
    /// Long work off the window thread asks for texts too: one look-up at a time.
    std::mutex m_lookUp;
};

} // namespace lorvane
