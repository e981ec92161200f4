// Finds the stops of a request in the network.
#pragma once

#include <optional>
#include <unordered_set>
#include <vector>

#include "Source/Guidance/Network/Ends.hpp"
#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Plan.hpp"
#include "Source/Guidance/Request.hpp"
#include "Source/Guidance/Snap.hpp"

namespace orivanta::guidance {

/// A stop in the network, or the reason why it has no part there.
struct ResolvedStop {
  Ends ends;
  std::vector<const PlaceTable::Place*> places;  ///< the places that the stop may be; or empty
  std::optional<Problem::Kind> problem;

  /// Returns the place at a vertex; null if the stop is a node or a position.
  const PlaceTable::Place* placeAt(GuideNetwork::Index vertex) const;
};

/// The data and the closures must outlive it.
class StopResolver {
 public:
  StopResolver(const GuideData& data, const Closures& closures)
      : data_(data), closures_(closures) {}

  /// Resolves the stop at an index of a request. A closed place has the problem `closed`, except at
  /// the start: a traveler can leave it. The excluded places are not used for categories.
  ResolvedStop resolve(const Stop& stop, std::size_t index, bool isStart,
                       const std::unordered_set<const PlaceTable::Place*>& excluded = {}) const;

  /// Returns the point of the network next to a position, and the arc that it is on.
  static std::optional<Snap> snap(const GuideData& data, const Position& position,
                                  GuideNetwork::Index* arc = nullptr);

 private:
  ResolvedStop atPlace(const std::shared_ptr<Location>& location, bool isStart) const;
  ResolvedStop atNode(const std::shared_ptr<Node>& node, bool isStart) const;
  ResolvedStop atNodes(const NodeList& nodes, bool isStart) const;
  ResolvedStop inCategory(const std::shared_ptr<Category>& category, bool isStart,
                          const std::unordered_set<const PlaceTable::Place*>& excluded) const;
  ResolvedStop atPosition(const Position& position, std::size_t index) const;
  bool isClosed(const std::optional<std::string>& identifier) const;
  void addRooms(Ends& ends) const;

  const GuideData& data_;
  const Closures& closures_;
};

}  // namespace orivanta::guidance
