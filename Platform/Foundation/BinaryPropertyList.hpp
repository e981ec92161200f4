// Property lists in their binary form, read as far as settings need them.
#pragma once

#include <optional>
#include <string_view>

#include "Platform/Foundation/PropertyListDictionary.hpp"

namespace orivanta::foundation {

/// The entries of a binary property list ("bplist00") whose top level is a dictionary with text
/// keys; nothing when it is not, or when what is needed of it is damaged. Values that are no texts
/// are not looked into, however they are nested or refer to one another. Nothing as well when the
/// texts take more than 32 MiB together.
std::optional<PropertyListDictionary> readBinaryPropertyList(std::string_view bytes);

}  // namespace orivanta::foundation
