// Where the settings of the API session come from when the application does not give them.
#pragma once

#include <optional>
#include <string>

namespace orivanta {

/// A setting from the main bundle's property lists: the text of the first file that has the key
/// with a text, which may be empty.
std::optional<std::string> settingFromPropertyLists(const std::string& key);

/// Takes the user name and password out of the URL `endpoint`. They become `username` and
/// `password` if no user name is set, the password only if none is set either.
void takeCredentials(std::string& endpoint, std::optional<std::string>& username,
                     std::optional<std::string>& password);

}  // namespace orivanta
