// A loaded venue, with what is made of it at first use.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/PlaceSearch.hpp"

namespace orivanta::web {

/// A venue that the page uses. It refers to nodes by their index in the venue's list.
class LoadedVenue {
 public:
  /// The venue must be loaded.
  explicit LoadedVenue(std::shared_ptr<Venue> venue);

  /// Returns the venue.
  const Venue& venue() const { return *venue_; }

  /// Returns the venue, to share it with a map.
  const std::shared_ptr<Venue>& sharedVenue() const { return venue_; }

  /// Returns the index of a node; -1 if it is not in the venue's list.
  int indexOf(const Node& node) const;

  /// Returns the index of a floor; -1 if it is null or not in the venue's list.
  int indexOf(const std::shared_ptr<Map>& floor) const;

  /// Returns the planner of routes.
  const guidance::Guide& guide();

  /// Returns the index of places.
  const PlaceSearch& search();

 private:
  const std::shared_ptr<Venue> venue_;
  std::unordered_map<const Node*, int> nodeIndices_;
  std::shared_ptr<const guidance::Guide> guide_;
  std::optional<PlaceSearch> search_;
};

}  // namespace orivanta::web
