// The active venue as the library itself reads and fills it: under one lock, since a load may start
// while another one ends, on another thread. The application's own use of `activeVenue` and of the
// venue's fields is not under the lock.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta {

/// The fields of a venue that a load fills.
struct VenueContents {
  std::optional<std::vector<std::shared_ptr<Location>>> locations;
  std::optional<std::vector<std::shared_ptr<Category>>> categories;
  std::optional<std::vector<std::shared_ptr<Map>>> maps;
  std::optional<std::vector<std::shared_ptr<Node>>> nodes;
  std::optional<std::vector<std::shared_ptr<Vortex>>> vortices;
  std::optional<std::vector<std::shared_ptr<Polygon>>> polygons;
  std::optional<Collection<Polygon>> polygonDictionary;
  std::shared_ptr<NavigationGraph> navigationGraph;
};

/// Makes `venue` the active one. What the one before it held is taken out of it and released in the
/// background, since a large venue takes a while.
void makeActive(const std::shared_ptr<Venue>& venue);

/// Gives the contents to the active venue and returns it. Without an active venue stops the
/// program.
std::shared_ptr<Venue> fillActiveVenue(VenueContents contents);

/// The active venue's graph, null if it has none. Without an active venue stops the program.
std::shared_ptr<NavigationGraph> activeGraph();

}  // namespace orivanta
