// Dictionary operators: merging two dictionaries and looking for entries.
#pragma once

#include <string>

#include "Source/Collections.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// All entries of both; on a key of both, the value of `left`. Entries of `right` come first.
template <class Value>
Dictionary<Value> operator+(const Dictionary<Value>& left, const Dictionary<Value>& right) {
  Dictionary<Value> merged = right;
  for (const auto& [key, value] : left) merged.insert_or_assign(key, value);
  return merged;
}

/// Whether every entry of `wanted` is in `entries` with an equal value; true for no wanted entries.
inline bool contains(const Dictionary<std::string>& entries,
                     const Dictionary<std::string>& wanted) {
  for (const auto& [key, value] : wanted) {
    const auto entry = entries.find(key);
    if (entry == entries.end() || entry->second != value) return false;
  }
  return true;
}

}  // namespace orivanta
