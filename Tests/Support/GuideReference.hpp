// An independent computation of what routes cost, from the records alone: for the tests of
// guidance.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/Profile.hpp"
#include "Source/NodeList.hpp"
#include "Source/Venue.hpp"

namespace orivanta::test {

/// Builds lists of edges of the records for one profile and set of closures, and searches them with
/// Dijkstra's algorithm without any bound.
class GuideReference {
 public:
  GuideReference(const Venue& venue, const guidance::Profile& profile,
                 const guidance::Closures& closures);

  /// The cost to visit a node of each list in order, each part beginning where the one before ends;
  /// nothing if there is no way.
  std::optional<std::int64_t> cost(const std::vector<NodeList>& stops) const;

  /// The least cost of all orders of the stops between the first and the last.
  std::optional<std::int64_t> bestCost(const std::vector<NodeList>& stops) const;

 private:
  struct Way {
    const Node* to;
    std::int64_t cost;
    bool leavesRoom;
  };
  using Costs = std::map<const Node*, std::int64_t>;
  using Rows = std::map<std::pair<std::size_t, const Node*>, Costs>;

  void findRooms(const Venue& venue, const guidance::Closures& closures);
  int roomOf(const Node* node) const;
  void addWay(const Node* from, const Node* to, double seconds, double penaltySeconds);
  Costs spread(const Costs& starts, const NodeList& startStop) const;
  Rows rowsOf(const std::vector<NodeList>& stops) const;
  static std::optional<std::int64_t> costOf(const std::vector<std::size_t>& order,
                                            const std::vector<NodeList>& stops, const Rows& rows);

  std::map<const Node*, std::vector<Way>> ways_;
  std::map<const Node*, int> rooms_;
  std::set<const Node*> closed_;
  std::set<const Node*> closedInside_;  // of closed rooms; one can leave but not enter
};

/// A mall of the generator as a loaded venue: with lifts, stairs, escalators, ramps, some of them
/// not accessible, rooms, places without rooms, node weights, and an outdoor floor.
std::shared_ptr<Venue> mallVenue(std::size_t nodeCount, std::uint32_t seed);

/// A package of real records as a loaded venue.
std::shared_ptr<Venue> packageVenue(const std::string& name);

}  // namespace orivanta::test
