// A reader for XML and binary property lists, limited to what settings need.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace orivanta::foundation {

/// The string values of a dictionary by key. A key whose value is not a string maps to nothing.
using PropertyListDictionary = std::map<std::string, std::optional<std::string>>;

/// Reads the entries of a property list whose top level is a dictionary. Returns nothing if the
/// file cannot be read, is larger than 16 MiB, has another form, or (in XML) contains more than
/// 10,000 arrays and dictionaries.
std::optional<PropertyListDictionary> readPropertyList(const std::filesystem::path& file);

}  // namespace orivanta::foundation
