// The kinds of places as visitors browse them.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "Source/Guidance/Kinds/PlaceKind.hpp"

namespace orivanta::viewer {

/// A kind of places, or several kinds under one name.
struct KindGroup {
  PlaceKind icon;            ///< the kind whose icon stands for the group
  std::string_view nameKey;  ///< of its name in `InterfaceTexts`, such as "Toilets"
  double usefulness;         ///< to most visitors, from 0 to 100
};

/// Returns all groups.
std::span<const KindGroup> kindGroups();

/// Returns the index of the group of a kind. Returns nothing for `PlaceKind::other`.
std::optional<std::size_t> kindGroupOf(PlaceKind kind);

}  // namespace orivanta::viewer
