// Dictionaries with text keys, and the collections of records made of them.
// Public header.
#pragma once

#include <tsl/ordered_map.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/Export.hpp"

namespace orivanta {

/// Hashes any text, so that a lookup needs no copy of its key. The hash differs from process to
/// process, so that nobody can send identifiers that all collide.
struct TextHash {
  using is_transparent = void;  ///< allows lookups without a copy of the key

  /// The hash of a text.
  ORIVANTA_API std::size_t operator()(std::string_view text) const;
};

/// A dictionary keyed by text that iterates in the order of insertion. Giving an existing key a
/// new value keeps the key's place.
template <class Value>
using Dictionary = tsl::ordered_map<std::string, Value, TextHash, std::equal_to<>,
                                    std::allocator<std::pair<std::string, Value>>,
                                    std::vector<std::pair<std::string, Value>>>;

/// Records of one collection by identifier, in the order in which the web API sent them.
template <class Record>
using Collection = Dictionary<std::shared_ptr<Record>>;

}  // namespace orivanta
