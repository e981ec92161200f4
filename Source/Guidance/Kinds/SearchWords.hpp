// The words that people type for kinds of places.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"

namespace orivanta {

/// Returns the words for places of a kind, such as "lift", "elevator" and "aufzug", in the search
/// form (see `searchForm`): English ones first, then those of German, French, Japanese, Arabic and
/// other languages. `PlaceSearch` finds places by these words. Returns an empty list if there are
/// no words. Thread-safe.
ORIVANTA_API std::vector<std::string> searchWordsOf(PlaceKind kind);

/// Returns the words for emergency exits in all languages, in the search form. Thread-safe.
ORIVANTA_API std::vector<std::string> emergencyExitWords();

/// Returns whether a name, in the search form, contains a word for emergency exits. Spaces make no
/// difference. Thread-safe.
ORIVANTA_API bool namesEmergencyExit(std::string_view form);

}  // namespace orivanta
