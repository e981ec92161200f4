// The kinds of many places.
#pragma once

#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/Location.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

/// Determines each kind only once for all places that have the same type and categories. Refers to
/// the words.
class KindLookup {
 public:
  explicit KindLookup(const KindWords& words) : words_(words) {}

  PlaceKind of(const Location& place) {
    Key key{dynamic_cast<const Vortex*>(&place) != nullptr, place.type.value_or(""), {}};
    for (const auto& category : place.categories) std::get<2>(key).push_back(category.get());
    const auto known = kinds_.find(key);
    if (known != kinds_.end()) return known->second;
    return kinds_.emplace(std::move(key), words_.kindOf(place)).first->second;
  }

 private:
  using Key = std::tuple<bool, std::string, std::vector<const Category*>>;
  const KindWords& words_;
  std::map<Key, PlaceKind> kinds_;
};

}  // namespace orivanta::viewer
