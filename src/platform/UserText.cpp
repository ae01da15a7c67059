// SPDX-License-Identifier: GPL-3.0-or-later
#include "UserText.h"

#include "StringCatalog.h"

namespace lorvane {

namespace {

std::unique_ptr<StringCatalog>& current()
{
    // Made on first use, so a text asked for before start-up (or in a test) is English.
    static std::unique_ptr<StringCatalog> catalog = std::make_unique<StringCatalog>();
    return catalog;
}

} // namespace

QString userText(const char* id, const char* english)
{
    return userText(id, QString::fromUtf8(english));
}

QString userText(const char* id, const QString& english)
{
    return stringCatalog().translate(QString::fromLatin1(id), english);
}

QString userTextByName(const QString& name)
{
    return stringCatalog().translate(QString::number(StringCatalog::noId), name);
}

StringCatalog& stringCatalog()
{
    return *current();
}

std::unique_ptr<StringCatalog> installStringCatalog(std::unique_ptr<StringCatalog> catalog)
{
    if (!catalog)
        catalog = std::make_unique<StringCatalog>();
    current().swap(catalog);
    return catalog;
}

} // namespace lorvane
