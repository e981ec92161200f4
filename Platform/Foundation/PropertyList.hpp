// Property lists, XML and binary, read as far as settings need them.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace orivanta::foundation {

/// The entries of a property list whose top level is a dictionary: its text values by key; a key
/// with a value of another kind is present with nothing.
using PropertyListDictionary = std::map<std::string, std::optional<std::string>>;

/// Reads the file. Nothing when it cannot be read, is over 16 MiB, is no property list, is not a
/// dictionary at the top level or has more than 10,000 arrays and dictionaries as XML.
std::optional<PropertyListDictionary> readPropertyList(const std::filesystem::path& file);

}  // namespace orivanta::foundation
