// Reads map themes from JSON files. The guide "Themes" describes the format.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// A theme and what its file contains in addition.
struct MapThemeFile {
  std::shared_ptr<const MapTheme> theme;    ///< never null
  std::vector<std::string> unknownMembers;  ///< paths such as "colors.rout"; they are ignored
};

/// Reads a theme from JSON. Members that are missing keep the values of the built-in theme that
/// "base" names. Fails if the text is not a JSON object or a member has a wrong value; the domain
/// of the error is "theme", and its description begins with the path of the member. Thread-safe.
ORIVANTA_API foundation::Result<MapThemeFile> parseMapTheme(std::string_view json);

/// As above, from a file of at most 1 MiB. The description begins with the path of the file.
ORIVANTA_API foundation::Result<MapThemeFile> readMapTheme(const std::filesystem::path& file);

}  // namespace orivanta
