// Finds the stops of a request in the network.
#pragma once

#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

#include "Source/Guidance/Network/Ends.hpp"
#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Plan.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::guidance {

/// A stop in the network, or the reason why it has no part there.
struct ResolvedStop {
  Ends ends;
  PlaceTable::Places places;  ///< the places that the stop may be; or empty
  /// The nodes of the places, by node and then in the order of the places.
  std::vector<std::pair<GuideNetwork::Index, const PlaceTable::Place*>> nodes;
  std::optional<Problem::Kind> problem;

  /// Returns the places at a vertex; none if the stop is a node or a position.
  PlaceTable::Places placesAt(GuideNetwork::Index vertex) const;
};

/// The data must outlive it.
class StopResolver {
 public:
  StopResolver(const GuideData& data, const Closures& closures,
               const std::optional<LocalTime>& departure = {});

  /// Resolves the stop at an index of a request. A place that the closures contain has the problem
  /// `closed`, except at the start: a traveler can leave it. The opening hours of a place are not
  /// considered, but of several places, or those of a category, the ones that are closed for the
  /// first hour after the departure are left out.
  ResolvedStop resolve(const Stop& stop, std::size_t index, bool isStart) const;

 private:
  ResolvedStop atPlace(const std::shared_ptr<Location>& location, bool isStart) const;
  ResolvedStop atNode(const std::shared_ptr<Node>& node, bool isStart) const;
  ResolvedStop atNodes(const NodeList& nodes, bool isStart) const;
  ResolvedStop atAny(const std::optional<PlaceTable::Places>& places, bool isStart) const;
  ResolvedStop atPosition(const Position& position, std::size_t index) const;
  bool isClosedForLong(const PlaceTable::Place& place) const;
  void addRooms(Ends& ends) const;

  const GuideData& data_;
  std::unordered_set<const PlaceTable::Place*> closedPlaces_;
  std::unordered_set<GuideNetwork::Index> closedNodes_;
  std::optional<LocalTime> departure_;
};

}  // namespace orivanta::guidance
