// Property lists, XML and binary, read as far as settings need them.
#pragma once

#include <filesystem>
#include <optional>

#include "Platform/Foundation/PropertyListDictionary.hpp"

namespace orivanta::foundation {

/// Reads the file. Nothing when it cannot be read, is over 16 MiB, is no property list, is not a
/// dictionary at the top level or has more than 10,000 arrays and dictionaries as XML.
std::optional<PropertyListDictionary> readPropertyList(const std::filesystem::path& file);

}  // namespace orivanta::foundation
