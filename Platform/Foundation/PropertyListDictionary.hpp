// The entries of a property list, as both of its forms are read.
#pragma once

#include <map>
#include <optional>
#include <string>

namespace orivanta::foundation {

/// The entries of a property list whose top level is a dictionary: its text values by key. A key
/// with a value of another kind is present with nothing.
using PropertyListDictionary = std::map<std::string, std::optional<std::string>>;

}  // namespace orivanta::foundation
