// The entries of a property list, for both formats.
#pragma once

#include <map>
#include <optional>
#include <string>

namespace orivanta::foundation {

/// The string values of a property list's top-level dictionary by key. A key whose value is not a
/// string maps to nothing.
using PropertyListDictionary = std::map<std::string, std::optional<std::string>>;

}  // namespace orivanta::foundation
