// The process-wide API session and the settings that it is made of.
#pragma once

#include "Source/Orivanta.hpp"

namespace orivanta {

/// A setting from the main bundle's property lists: the text of the first file that has the key
/// with a text; an empty one counts.
std::optional<std::string> settingFromPropertyLists(const std::string& key);

/// The one session of the process, made on first use.
const WebApiSession& APISession();

}  // namespace orivanta
