// A reader for XML and binary property lists, limited to what settings need.
#pragma once

#include <filesystem>
#include <optional>

#include "Platform/Foundation/PropertyListDictionary.hpp"

namespace orivanta::foundation {

/// Reads the entries of a property list whose top level is a dictionary. Returns nothing if the
/// file cannot be read, is larger than 16 MiB, has another form, or (in XML) contains more than
/// 10,000 arrays and dictionaries. In a browser, always returns nothing.
std::optional<PropertyListDictionary> readPropertyList(const std::filesystem::path& file);

}  // namespace orivanta::foundation
