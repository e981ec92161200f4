// The built-in words for kinds of places.
// Private header.
#pragma once

#include <span>
#include <string_view>

#include "Source/Guidance/Kinds/PlaceKind.hpp"

namespace orivanta {

/// Words of one kind, separated by commas, in the notation of `KindWords::add`.
struct KindRow {
  PlaceKind kind;
  std::string_view words;
};

/// The rows in the order in which they are tried: "waiting rooms" is found before "rooms".
std::span<const KindRow> kindTable();

/// Whom toilets are for. Tried if a text means toilets; in all other texts, these words may mean
/// anything.
std::span<const KindRow> toiletTable();

}  // namespace orivanta
