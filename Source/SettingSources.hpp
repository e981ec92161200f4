// Sources of the settings of the API session that the application does not set.
#pragma once

#include <optional>
#include <string>

#include "Platform/Foundation/Export.hpp"

namespace orivanta {

/// Returns a setting from the main bundle's property lists: the string in the first file that has
/// one under this key. The string may be empty.
ORIVANTA_API std::optional<std::string> settingFromPropertyLists(const std::string& key);

/// Removes the user name and the password from the URL `endpoint`. If no user name is set, they
/// become `username` and `password`; a password that is already set is kept.
ORIVANTA_API void takeCredentials(std::string& endpoint, std::optional<std::string>& username,
                                  std::optional<std::string>& password);

}  // namespace orivanta
