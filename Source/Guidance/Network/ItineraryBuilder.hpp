// Makes itineraries of paths in the network.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Network/Ends.hpp"
#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Network/PathMeasure.hpp"

namespace orivanta::guidance {

/// The data must outlive it.
class ItineraryBuilder {
 public:
  ItineraryBuilder(const GuideData& data, const Profile& profile);

  /// Adds the legs of a path between two stops. `from` and `to` are the stops if they are
  /// positions; otherwise they may be null.
  void addPath(const NetworkPath& path, const Ends* from, const Ends* to);

  /// Adds a visit after the legs that were added.
  void addVisit(std::size_t stop, std::shared_ptr<Location> location, bool isClosed = false);

  /// Returns the itinerary.
  Itinerary take() { return std::move(itinerary_); }

 private:
  using Index = GuideNetwork::Index;

  void addHop(const Hop& hop, bool beginsPath, const PathMeasure& measure);
  void beginLeg(const Hop& hop, const PathMeasure& measure);

  const GuideData& data_;
  double speed_;
  Index legStart_ = GuideNetwork::none;
  Itinerary itinerary_;
};

/// Returns an itinerary along nodes that are connected, as `Guide::itinerary`.
std::optional<Itinerary> itineraryAlong(const GuideData& data, const NodeList& nodes,
                                        const std::shared_ptr<Location>& departFrom,
                                        const std::shared_ptr<Location>& arriveAt,
                                        const Profile& profile);

}  // namespace orivanta::guidance
