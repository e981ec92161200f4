// Joining the six collections of a venue into one object graph. The tasks read identifiers from the
// records' own JSON; a reference that names no record makes no link.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Source/Fwd.hpp"

namespace orivanta {

/// The collections of one load; absent means not yet received.
struct CollectionDictionary {
  std::optional<Collection<Location>> locations;
  std::optional<Collection<Category>> categories;
  std::optional<Collection<Map>> maps;
  std::optional<Collection<Node>> nodes;
  std::optional<Collection<Vortex>> vortices;
  std::optional<Collection<Polygon>> polygons;
  std::shared_ptr<NavigationGraph> navigationGraph;
};

// Each task returns whether its inputs were there; without them it does nothing. Tasks that append
// do so again when they run again.

bool linkCategoryParents(CollectionDictionary& collections);
bool linkLocationCategories(CollectionDictionary& collections);
/// Drops the polygons whose map is missing or unknown.
bool linkPolygonMaps(CollectionDictionary& collections);
/// Drops the nodes whose map is missing or unknown.
bool linkNodeMaps(CollectionDictionary& collections);
bool linkPolygonEntrances(CollectionDictionary& collections);
/// Also builds the navigation graph.
bool linkVortexNodes(CollectionDictionary& collections, bool accessible);
bool linkLocationNodes(CollectionDictionary& collections);
/// Takes from each location the nodes that are entrances of its own polygons.
bool linkLocationPolygons(CollectionDictionary& collections);
/// Hands everything over to the active venue and calls back with it.
bool publishVenue(const CollectionDictionary& collections,
                  const std::function<void(std::shared_ptr<Venue>)>& callback);

}  // namespace orivanta
