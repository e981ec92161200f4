// Fills venues with loaded contents and manages the active venue for the library. One lock guards
// both, because a load may start while another one ends on another thread. The lock does not cover
// an application's access to `activeVenue` and to the fields of venues. Thread-safe.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Source/Collections.hpp"
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

/// Passes the contents to the venue of a load and returns that venue. Returns null if the load is
/// over.
using Publish = std::function<std::shared_ptr<Venue>(VenueContents contents)>;

/// Makes `venue` the active venue. The contents of the previously active venue are removed from it
/// and released in the background, because that takes time for a large venue.
void makeActive(const std::shared_ptr<Venue>& venue);

/// Moves the contents to the active venue and returns it. Stops the program if no venue is active.
std::shared_ptr<Venue> fillActiveVenue(VenueContents contents);

/// Removes the contents of an earlier load from the venue and releases them in the background.
void clearVenue(const std::shared_ptr<Venue>& venue);

/// Moves the contents to the venue and returns it.
std::shared_ptr<Venue> fillVenue(const std::shared_ptr<Venue>& venue, VenueContents contents);

/// Returns the active venue's graph, or null if it has none. Stops the program if no venue is
/// active.
std::shared_ptr<NavigationGraph> activeGraph();

/// Returns the graph of a venue that a load may be filling, or null if it has none.
std::shared_ptr<NavigationGraph> graphOf(const Venue& venue);

}  // namespace orivanta
