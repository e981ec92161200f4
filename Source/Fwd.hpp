// Forward declarations of the records, and the two collection types that they use everywhere.
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

class Category;
class Direction;
class Directions;
class Edge;
class ImageCollection;
class Location;
class Map;
class NavigationGraph;
class Node;
class Polygon;
class RawData;
class Venue;
class Vortex;

/// Lets a dictionary look up any text without a copy. The hash differs from process to process, so
/// that nobody can send identifiers that all fall into one place.
struct TextHash {
  using is_transparent = void;
  ORIVANTA_API std::size_t operator()(std::string_view text) const;
};

/// A dictionary keyed by text that iterates in the order of insertion; giving an existing key a
/// new value keeps the key's place.
template <class Value>
using Dictionary = tsl::ordered_map<std::string, Value, TextHash, std::equal_to<>,
                                    std::allocator<std::pair<std::string, Value>>,
                                    std::vector<std::pair<std::string, Value>>>;

/// Records of one collection by identifier, in the order in which the web API sent them.
template <class Record>
using Collection = Dictionary<std::shared_ptr<Record>>;

using NodeList = std::vector<std::shared_ptr<Node>>;

}  // namespace orivanta
