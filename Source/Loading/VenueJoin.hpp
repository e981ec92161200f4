// Joining the six collections of a venue into one object graph. The tasks read identifiers from the
// records' own JSON; a reference that names no record makes no link.
#pragma once

#include <memory>
#include <optional>

#include "Platform/Foundation/MemoryBudget.hpp"
#include "Source/Collections.hpp"
#include "Source/Fwd.hpp"
#include "Source/Loading/VenuePublishing.hpp"

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
  std::shared_ptr<foundation::MemoryBudget> budget;  ///< pays for the links; may be null
};

// Each task returns whether its inputs were there; without them it does nothing. Tasks that append
// do so again when they run again. A task that runs out of memory or budget throws `std::bad_alloc`
// and leaves the collections half linked.

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
/// Hands everything over to `publish` and returns its result. Returns null without the inputs.
/// Calls `publish` only if there is enough memory for all of the contents.
std::shared_ptr<Venue> publishVenue(const CollectionDictionary& collections,
                                    const Publish& publish);

}  // namespace orivanta
