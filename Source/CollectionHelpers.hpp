// Operators for dictionaries: merging two dictionaries and finding entries.
#pragma once

#include <string>

#include "Source/Collections.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// Returns the entries of both. If both have a key, the value of `left` is used. Entries of `right`
/// come first.
template <class Value>
Dictionary<Value> operator+(const Dictionary<Value>& left, const Dictionary<Value>& right) {
  Dictionary<Value> merged = right;
  for (const auto& [key, value] : left) merged.insert_or_assign(key, value);
  return merged;
}

/// Returns whether `entries` has every entry of `wanted`, with an equal value. Returns true if
/// `wanted` is empty.
inline bool contains(const Dictionary<std::string>& entries,
                     const Dictionary<std::string>& wanted) {
  for (const auto& [key, value] : wanted) {
    const auto entry = entries.find(key);
    if (entry == entries.end() || entry->second != value) return false;
  }
  return true;
}

}  // namespace orivanta
