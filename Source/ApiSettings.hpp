// The settings that the process-wide API session is made of.
#pragma once

#include "Source/Orivanta.hpp"

namespace orivanta {

/// A setting from the main bundle's property lists: the text of the first file that has the key
/// with a text; an empty one counts.
std::optional<std::string> settingFromPropertyLists(const std::string& key);

}  // namespace orivanta
