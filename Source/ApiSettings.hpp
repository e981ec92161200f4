// The settings that the process-wide API session is made of.
#pragma once

#include "Source/Orivanta.hpp"

namespace orivanta {

/// A setting from the main bundle's property lists: the text of the first file that has the key
/// with a text; an empty one counts.
std::optional<std::string> settingFromPropertyLists(const std::string& key);

/// Takes the user name and password out of the URL `endpoint`: they become `username` and
/// `password` if no user name is set, the password only if none is set either.
void takeCredentials(std::string& endpoint, std::optional<std::string>& username,
                     std::optional<std::string>& password);

}  // namespace orivanta
