// What a search for places returns.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"

namespace orivanta {

/// What a list shows of a place or connector. Immutable.
struct PlaceEntry {
  std::shared_ptr<Location> place;  ///< a `Vortex` for a connector; never null

  /// The place's name. For a connector, the name on its sign, or else that of its category, or else
  /// that of its record. May contain control characters, see `foundation::label`.
  std::string name;
  std::string category;               ///< the name of the first category; empty if there is none
  PlaceKind kind = PlaceKind::other;  ///< see `KindWords`

  /// The floors on which the place is, or which the connector reaches, the lowest first.
  FloorList floors;
};

/// How a place matches a search; a smaller value is better.
enum class PlaceMatch {
  name,         ///< the text is the name
  kind,         ///< the text means a kind of facilities, such as "lift", and the place is one
  beginning,    ///< the name begins with the text
  word,         ///< each word begins a word of the name
  inside,       ///< each word occurs somewhere in the name
  category,     ///< each word belongs to the category, the kind or the floor of the place
  description,  ///< each word begins a word of the description
  near          ///< a word differs in one or two letters, see `NameMatch::near`
};

/// Returns the name of the enumerator, such as "beginning".
ORIVANTA_API std::string_view wordOf(PlaceMatch match);

/// A place or connector that a search has found.
struct FoundPlace {
  std::shared_ptr<const PlaceEntry> entry;  ///< never null
  PlaceMatch match = PlaceMatch::name;      ///< how it matches
};

/// A group of found places.
struct FoundGroup {
  std::string title;  ///< the category's name, at most 80 columns; empty if there is no category
  std::vector<FoundPlace> places;  ///< in list order
};

}  // namespace orivanta
