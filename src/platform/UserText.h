// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

namespace lorvane {

class StringCatalog;

/// Every text the user sees passes through here with its six-digit id, for example
/// `userText("200001", "This database is damaged.")`. Until start-up installs a configured
/// catalogue the process-wide one is inactive and the English default comes back unchanged.
/// Never throws: any failure of the translation database gives the default.
QString userText(const char* id, const char* english);
/// The same with a default that is already a QString.
QString userText(const char* id, const QString& english);
/// A name that has no id of its own (a data point name of the dictionary), looked up by its
/// English text under id "999999"; the name itself when there is no translation.
QString userTextByName(const QString& name);

/// The process-wide catalogue that the helpers above use.
StringCatalog& stringCatalog();
/// Replaces the process-wide catalogue and gives back the previous one (a test puts it back
/// when done). A null pointer installs an inactive catalogue.
std::unique_ptr<StringCatalog> installStringCatalog(std::unique_ptr<StringCatalog> catalog);

} // namespace lorvane
