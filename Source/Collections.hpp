// Dictionaries with string keys, and the collections of records.
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

/// Hashes a text; a lookup does not copy its key. The hash differs between processes, so that a
/// server cannot send identifiers that all collide.
struct TextHash {
  using is_transparent = void;  ///< allows lookups without a copy of the key

  /// Returns the hash of a text.
  ORIVANTA_API std::size_t operator()(std::string_view text) const;
};

/// A dictionary with string keys that iterates in the order of insertion. Assigning a new value to
/// an existing key keeps its position.
template <class Value>
using Dictionary = tsl::ordered_map<std::string, Value, TextHash, std::equal_to<>,
                                    std::allocator<std::pair<std::string, Value>>,
                                    std::vector<std::pair<std::string, Value>>>;

/// The records of one collection by identifier, in the order of the web API.
template <class Record>
using Collection = Dictionary<std::shared_ptr<Record>>;

}  // namespace orivanta
