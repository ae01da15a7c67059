// SPDX-License-Identifier: GPL-3.0-or-later
#include "StringCatalog.h"

#include "SqliteDatabase.h"
#include "StoredPath.h"

#include <QFileInfo>
#include <exception>

namespace lorvane {

StringCatalog::StringCatalog() = default;

StringCatalog::StringCatalog(const QString& lookupFile, Preload preload) : m_lookupFile(lookupFile)
{
    const QString localPath = StoredPath::toLocal(lookupFile);
    if (!QFileInfo(localPath).isFile())
        return;
    const qsizetype cut = StoredPath::lastSeparator(lookupFile);
    m_folder = lookupFile.left(cut);
    m_fileName = lookupFile.mid(cut + 1);
    try {
        m_db = std::make_unique<SqliteDatabase>(localPath, SqliteDatabase::Mode::ReadOnly);
    } catch (const std::exception&) {
        // Not a database at all: there is nothing to translate with.
        return;
    }
    m_inactive = false;
    readIdentity();
    readGreatestId();
    if (preload == Preload::Yes)
        preloadAll();
}

StringCatalog::~StringCatalog() = default;

void StringCatalog::readIdentity()
{
    try {
        SqlStatement row = m_db->prepare(QStringLiteral("Select * from DBID"));
        if (!row.next())
            return;
        // A null or missing column keeps the field's default.
        const auto field = [&row](const char* name) {
            return row.value(QString::fromLatin1(name));
        };
        if (const QVariant v = field("pFontName"); !v.isNull())
            m_fontName = v.toString();
        if (const QVariant v = field("pFileVer"); !v.isNull())
            m_fileVersion = v.toString();
        if (const QVariant v = field("pFontCharSet"); !v.isNull())
            m_fontCharset = v.toInt();
        if (const QVariant v = field("pIsUnicode"); !v.isNull())
            m_isUnicode = v.toInt() != 0;
    } catch (const std::exception&) {
        // A database without DBID keeps every default.
    }
}

void StringCatalog::readGreatestId()
{
    try {
        const QVariant greatest =
            m_db->scalar(QStringLiteral("Select Max(IndexValue) as IDMAX from MAIN"));
        m_greatestId = greatest.isNull() ? -1 : greatest.toInt();
    } catch (const std::exception&) {
        m_greatestId = -1;
    }
}

void StringCatalog::preloadAll()
{
    try {
        // Names without an id are found by their text, never through the cache.
        SqlStatement rows =
            m_db->prepare(QStringLiteral("Select IndexValue, TranslatedValue from MAIN where "
                                         "IndexValue >= 0 And IndexValue < ?"));
        rows.bind(1, qint64{noId});
        while (rows.next()) {
            const qint32 id = static_cast<qint32>(rows.integer(0));
            // A second row of one id must not wipe a translation with an empty one.
            const QString text = rows.isNull(1) ? QString() : rows.text(1);
            if (!text.isEmpty() || !m_cache.contains(id))
                m_cache.insert(id, text);
        }
        m_preloaded = true;
    } catch (const std::exception&) {
        // Half a preload is still a valid cache of what it read; the rest is read on demand.
        m_preloaded = false;
    }
}

QString StringCatalog::translate(const QString& id, const QString& text)
{
    if (m_inactive)
        return text;
    bool numeric = false;
    const qint32 number = id.toInt(&numeric);
    if (!numeric || number < 0 || number > noId)
        return text;
    QString translated;
    const std::lock_guard<std::mutex> lock(m_lookUp);
    try {
        translated = number == noId ? lookUpByText(text) : lookUpById(number);
    } catch (const std::exception&) {
        // A database that lacks a table fails on every use; the user simply reads English.
        return text;
    }
    return translated.isEmpty() ? text : translated;
}

QString StringCatalog::lookUpById(qint32 id)
{
    if (id > m_greatestId)
        return {};
    // After a complete preload the cache knows every id of MAIN; otherwise an id is read once
    // and its answer, found or not, kept.
    if (m_preloaded || m_cache.contains(id))
        return m_cache.value(id);
    const QVariant value =
        m_db->scalar(QStringLiteral("Select TranslatedValue From MAIN where IndexValue = ?"), {id});
    const QString text = value.isNull() ? QString() : value.toString();
    m_cache.insert(id, text);
    return text;
}

QString StringCatalog::lookUpByText(const QString& text)
{
    // The English text is bound, not pasted into the statement: a name with an apostrophe
    // ("Operator's Limit") would otherwise break the statement and never be translated.
    // Rows kept for names (id 999999) come first: the same English word may also stand under
    // an id with another meaning ("Power" the event class against "Power" the data point
    // group).
    const QVariant value =
        m_db->scalar(QStringLiteral("Select TranslatedValue From MAIN where TextValue = ? "
                                    "Order By (IndexValue = ?) Desc, IndexValue"),
                     {text, noId});
    return value.isNull() ? QString() : value.toString();
}

QString StringCatalog::lastRun() const
{
    if (m_inactive)
        return {};
    try {
        const QVariant value = m_db->scalar(QStringLiteral("Select LastRun from DBID"));
        return value.isNull() ? QString() : value.toString();
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace lorvane
