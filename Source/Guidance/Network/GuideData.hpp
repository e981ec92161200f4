// What a guide keeps of a venue.
#pragma once

#include "Source/Guidance/Network/CostCache.hpp"
#include "Source/Guidance/Network/EdgeIndex.hpp"
#include "Source/Guidance/Network/FloorLinks.hpp"
#include "Source/Guidance/Network/GuideNetwork.hpp"
#include "Source/Guidance/Network/PlaceTable.hpp"
#include "Source/Guidance/Network/SearchStates.hpp"

namespace orivanta::guidance {

/// Thread-safe; immutable except for the two caches.
struct GuideData {
  explicit GuideData(const Venue& venue)
      : network(venue),
        places(venue, network),
        edges(network),
        floors(network),
        costs(network),
        states(network.size()) {}

  GuideNetwork network;
  PlaceTable places;
  EdgeIndex edges;
  FloorLinks floors;
  mutable CostCache costs;
  mutable SearchStates states;
};

}  // namespace orivanta::guidance
