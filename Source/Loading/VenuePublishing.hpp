// Filling venues with what was loaded, and the active venue as the library itself uses it: under
// one lock, since a load may start while another one ends on another thread. The application's own
// use of `activeVenue` and of the fields of venues is not under the lock. Any thread.
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

/// Puts the contents into the venue that a load is for and returns that venue. Returns null if the
/// load is not wanted any more.
using Publish = std::function<std::shared_ptr<Venue>(VenueContents contents)>;

/// Makes `venue` the active one. The contents of the venue that was active before are taken out of
/// it and released in the background, since that takes a while for a large venue.
void makeActive(const std::shared_ptr<Venue>& venue);

/// Gives the contents to the active venue and returns it. Stops the program if no venue is active.
std::shared_ptr<Venue> fillActiveVenue(VenueContents contents);

/// Takes out of the venue what an earlier load put into it, and releases that in the background.
void clearVenue(const std::shared_ptr<Venue>& venue);

/// Gives the contents to the venue and returns it.
std::shared_ptr<Venue> fillVenue(const std::shared_ptr<Venue>& venue, VenueContents contents);

/// The active venue's graph, or null if it has none. Stops the program if no venue is active.
std::shared_ptr<NavigationGraph> activeGraph();

/// The graph of a venue that a load may be filling. Null if it has none.
std::shared_ptr<NavigationGraph> graphOf(const Venue& venue);

}  // namespace orivanta
