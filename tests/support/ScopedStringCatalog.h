// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "TestEnvironment.h"
#include "platform/StringCatalog.h"
#include "platform/UserText.h"

#include <memory>

namespace lorvane::test {

/// Installs a string catalogue as the process-wide one for the length of a test and puts the
/// previous one back, so that a test in another language cannot leak into the next test.
class ScopedStringCatalog
{
public:
    explicit ScopedStringCatalog(std::unique_ptr<StringCatalog> catalog)
        : m_previous(installStringCatalog(std::move(catalog)))
    {
    }
    ~ScopedStringCatalog() { installStringCatalog(std::move(m_previous)); }
    ScopedStringCatalog(const ScopedStringCatalog&) = delete;
    ScopedStringCatalog& operator=(const ScopedStringCatalog&) = delete;

    /// The German database that the build delivers.
    static QString germanDatabase() { return dataFolder() + "/translations/Lorvane_de.DB"; }

private:
    std::unique_ptr<StringCatalog> m_previous;
};

} // namespace lorvane::test
