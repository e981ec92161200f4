// A reader for binary property lists, limited to what settings need.
#pragma once

#include <optional>
#include <string_view>

#include "Platform/Foundation/PropertyListDictionary.hpp"

namespace orivanta::foundation {

/// The entries of a binary property list ("bplist00") whose top level is a dictionary with string
/// keys. Values other than strings are not examined, so their nesting and references do not matter.
/// Returns nothing if the list has another form, if a part that is needed is damaged, or if the
/// strings take more than 32 MiB in total.
std::optional<PropertyListDictionary> readBinaryPropertyList(std::string_view bytes);

}  // namespace orivanta::foundation
