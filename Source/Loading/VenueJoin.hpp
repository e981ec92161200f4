// Joins the six collections of a venue. The joins read identifiers from the JSON of the records; a
// reference to an unknown record creates no link.
#pragma once

#include <memory>
#include <optional>

#include "Platform/Foundation/MemoryBudget.hpp"
#include "Source/Collections.hpp"
#include "Source/Fwd.hpp"
#include "Source/Loading/VenuePublishing.hpp"

namespace orivanta {

/// The collections of one load; a collection is absent until it has been received.
struct CollectionDictionary {
  std::optional<Collection<Location>> locations;
  std::optional<Collection<Category>> categories;
  std::optional<Collection<Map>> maps;
  std::optional<Collection<Node>> nodes;
  std::optional<Collection<Vortex>> vortices;
  std::optional<Collection<Polygon>> polygons;
  std::shared_ptr<NavigationGraph> navigationGraph;
  std::shared_ptr<foundation::MemoryBudget> budget;  ///< the budget of the links; may be null
};

// Each join returns whether its inputs are present; if not, it does nothing. Joins that append
// links append them again when they run again. A join that exceeds the memory or the budget throws
// `std::bad_alloc` and leaves the collections partially linked.

bool linkCategoryParents(CollectionDictionary& collections);
bool linkLocationCategories(CollectionDictionary& collections);
/// Also removes the polygons whose map is missing or unknown.
bool linkPolygonMaps(CollectionDictionary& collections);
/// Also removes the nodes whose map is missing or unknown.
bool linkNodeMaps(CollectionDictionary& collections);
bool linkPolygonEntrances(CollectionDictionary& collections);
/// Also builds the navigation graph.
bool linkVortexNodes(CollectionDictionary& collections, bool accessible);
bool linkLocationNodes(CollectionDictionary& collections);
/// Removes from each location the nodes that are entrances of its polygons.
bool linkLocationPolygons(CollectionDictionary& collections);
/// Passes the contents to `publish` and returns its result. Returns null if an input is missing.
/// Calls `publish` only if there is enough memory for all contents.
std::shared_ptr<Venue> publishVenue(const CollectionDictionary& collections,
                                    const Publish& publish);

}  // namespace orivanta
