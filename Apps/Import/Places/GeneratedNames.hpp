// The choice of a language for names, and names for what the source does not name. The latter tell
// only what a thing is, without a number, so that another import gives the same names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// The name of a place of a category (a value of a source), such as "Office". `language` is that of
/// `Names::name`.
Names generatedName(std::string_view category, std::string_view language);

/// The name of a connector, such as "Stairs".
Names generatedName(ConnectorKind kind, std::string_view language);

/// Makes the name in the first of the languages that it has the main one. If there is none and no
/// main name, English is chosen, or else any language.
void preferLanguage(const std::vector<std::string>& languages, Names& names);

}  // namespace orivanta::importer
