#include "Tests/Support/GuideReference.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <queue>
#include <random>
#include <utility>

#include "Benchmarks/Mall.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/Networks.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::test {

namespace {

using guidance::Use;

// Other nodes are not in the network.
bool isUsable(const Node& node) {
  return std::fabs(node.x) <= 1e9 && std::fabs(node.y) <= 1e9 && std::fabs(node.z) <= 1e9;
}

bool isRoom(const Location& location) {
  for (const auto& polygon : location.polygons)
    if (!polygon->entrances.empty()) return true;
  return false;
}

Use useOf(const guidance::Profile& profile, const std::string& type) {
  if (type == "lift" || type == "elevator") return profile.lifts;
  if (type == "stairs") return profile.stairs;
  if (type == "escalator") return profile.escalators;
  return type == "ramp" ? profile.ramps : profile.others;
}

double rideTime(const std::string& type, double plan, double rise, double speed) {
  const double high = std::fabs(rise);
  if (type == "lift" || type == "elevator") return std::max(25 + 1.5 * high, plan / speed);
  if (type == "escalator") return std::max(std::max(high / 0.25, plan / 0.6), 3.0);
  if (type == "ramp") return std::max(plan / speed, 8 * high / speed);
  return std::max(std::max(rise > 0 ? high / 0.28 : high / 0.36, plan / speed), 3.0);
}

}  // namespace

GuideReference::GuideReference(const Venue& venue, const guidance::Profile& profile,
                               const guidance::Closures& closures) {
  findRooms(venue, closures);
  const double scale = venue._data["unitsPerMetre"].double_().value_or(1.0);
  const double speed = profile.walkingMetersPerSecond;
  for (const auto& node : *venue.nodes) {
    if (!isUsable(*node)) continue;
    if (closures.contains(*node->id)) closed_.insert(node.get());
    for (const Edge& edge : (*venue.navigationGraph)[*node]) {
      const Node& to = *edge.node();
      if (edge.vortex() || !isUsable(to)) continue;
      double seconds =
          (edge.distance() / scale * to.multiplierWeight + to.constantWeight / scale) / speed;
      seconds = std::min(seconds, 1073741.824);  // the limit of an edge
      if (to.map && to.map->_data["outdoor"].bool_().value_or(false)) {
        if (profile.outdoors == Use::forbidden) continue;
        if (profile.outdoors == Use::avoided) seconds *= 2;
      }
      addWay(node.get(), &to, seconds, 0);
    }
  }
  for (const auto& vortex : *venue.vortices) {
    const Use use = useOf(profile, *vortex->type);
    if (use == Use::forbidden || closures.contains(*vortex->id)) continue;
    if (profile.onlyAccessible && !vortex->accessible) continue;
    for (const auto& from : vortex->nodes)
      for (const auto& to : vortex->nodes) {
        if (!isUsable(*from) || !isUsable(*to)) continue;
        const double rise =
            (to->map->elevation + to->z) / scale - (from->map->elevation + from->z) / scale;
        const double plan = std::hypot(from->x - to->x, from->y - to->y) / scale;
        addWay(from.get(), to.get(), rideTime(*vortex->type, plan, rise, speed),
               use == Use::avoided ? 60 : 0);
      }
  }
}

void GuideReference::findRooms(const Venue& venue, const guidance::Closures& closures) {
  std::set<const Node*> outside;
  for (const auto& polygon : *venue.polygons)
    for (const auto& node : polygon->entrances) outside.insert(node.get());
  for (const auto& vortex : *venue.vortices)
    for (const auto& node : vortex->nodes) outside.insert(node.get());
  std::map<const Node*, bool> open;
  int number = 0;
  for (const auto& location : *venue.locations) {
    if (!isRoom(*location)) continue;
    ++number;
    for (const auto& node : location->nodes) {
      if (outside.count(node.get()) != 0) continue;
      open[node.get()] |= !closures.contains(*location->id);
      const int known = rooms_.emplace(node.get(), number).first->second;
      for (auto& [other, room] : rooms_)  // both are one room
        if (room == known) room = number;
    }
  }
  for (const auto& [node, isOpen] : open)
    if (!isOpen) closedInside_.insert(node);
}

int GuideReference::roomOf(const Node* node) const {
  const auto entry = rooms_.find(node);
  return entry == rooms_.end() ? 0 : entry->second;
}

void GuideReference::addWay(const Node* from, const Node* to, double seconds, double penalty) {
  const bool leaves = roomOf(from) != 0 && roomOf(from) != roomOf(to);
  ways_[from].push_back(
      {to, static_cast<std::int64_t>(std::ceil(1000 * seconds + 1000 * penalty)), leaves});
}

GuideReference::Costs GuideReference::spread(const Costs& starts, const NodeList& stop) const {
  std::set<int> free;  // rooms that can be left without penalty
  for (const auto& node : stop)
    if (const auto room = rooms_.find(node.get()); room != rooms_.end()) free.insert(room->second);
  using Entry = std::pair<std::int64_t, const Node*>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> queue;
  for (const auto& [node, cost] : starts) queue.emplace(cost, node);
  Costs done;
  while (!queue.empty()) {
    const auto [cost, node] = queue.top();
    queue.pop();
    if (!done.emplace(node, cost).second) continue;
    const auto ways = ways_.find(node);
    if (ways == ways_.end()) continue;
    for (const Way& way : ways->second) {
      if (closed_.count(way.to) != 0) continue;
      const bool isInside = closedInside_.count(node) != 0 && rooms_.at(node) == roomOf(way.to);
      if (closedInside_.count(way.to) != 0 && !isInside) continue;
      const bool pays = way.leavesRoom && free.count(rooms_.at(node)) == 0;
      queue.emplace(cost + way.cost + (pays ? 30'000 : 0), way.to);
    }
  }
  return done;
}

std::optional<std::int64_t> GuideReference::cost(const std::vector<NodeList>& stops) const {
  std::vector<std::size_t> order(stops.size());
  std::iota(order.begin(), order.end(), 0U);
  return costOf(order, stops, rowsOf(stops));
}

std::optional<std::int64_t> GuideReference::bestCost(const std::vector<NodeList>& stops) const {
  const auto rows = rowsOf(stops);
  std::vector<std::size_t> order(stops.size());
  std::iota(order.begin(), order.end(), 0U);
  std::optional<std::int64_t> least;
  do {
    const auto found = costOf(order, stops, rows);
    if (found) least = std::min(least.value_or(*found), *found);
  } while (std::next_permutation(order.begin() + 1, order.end() - 1));
  return least;
}

// The costs from each node of each stop but the last.
GuideReference::Rows GuideReference::rowsOf(const std::vector<NodeList>& stops) const {
  Rows rows;
  for (std::size_t stop = 0; stop + 1 < stops.size(); ++stop)
    for (const auto& node : stops[stop])
      rows[{stop, node.get()}] = spread({{node.get(), 0}}, stops[stop]);
  return rows;
}

std::optional<std::int64_t> GuideReference::costOf(const std::vector<std::size_t>& order,
                                                   const std::vector<NodeList>& stops,
                                                   const Rows& rows) {
  Costs here;
  for (const auto& node : stops.front()) here[node.get()] = 0;
  for (std::size_t i = 1; i < order.size(); ++i) {
    Costs there;
    for (const auto& [from, cost] : here) {
      const Costs& row = rows.at({order[i - 1], from});
      for (const auto& to : stops[order[i]])
        if (const auto entry = row.find(to.get()); entry != row.end()) {
          const auto known = there.emplace(to.get(), cost + entry->second).first;
          known->second = std::min(known->second, cost + entry->second);
        }
    }
    here = std::move(there);
  }
  std::optional<std::int64_t> least;
  for (const auto& entry : here) least = std::min(least.value_or(entry.second), entry.second);
  return least;
}

std::shared_ptr<Venue> mallVenue(std::size_t nodeCount, std::uint32_t seed) {
  std::mt19937 random(seed);
  const auto below = [&](std::size_t count) { return std::size_t(random()) % count; };
  const benchmarks::Mall mall = benchmarks::makeMall(nodeCount, 0.3, seed);
  auto venue = Venue::make(
      *RawData::parse(R"({"id": "m", "slug": "m", "name": "Mall", "unitsPerMetre": 1.5})"));
  venue->navigationGraph = mall.graph;
  venue->nodes = mall.nodes;
  venue->vortices.emplace();
  venue->maps.emplace();
  venue->locations.emplace();
  venue->polygons.emplace();
  venue->categories.emplace();
  const auto yard = RawData::parse(R"({"id": "yard", "outdoor": true})");
  std::set<const void*> seen;
  int number = 0;
  for (const auto& node : mall.nodes) {
    node->id = "n" + std::to_string(number++);
    node->multiplierWeight = below(20) == 0 ? 0.5 + double(below(8)) / 4 : 1.0;
    node->constantWeight = below(30) == 0 ? double(below(40)) : 0.0;
    if (seen.insert(node->map.get()).second) {
      if (venue->maps->size() == 1) node->map->_data = *yard;
      venue->maps->push_back(node->map);
    }
    for (const Edge& edge : (*mall.graph)[*node])
      if (edge.vortex() && seen.insert(edge.vortex().get()).second) {
        edge.vortex()->id = "v" + std::to_string(venue->vortices->size());
        edge.vortex()->type = std::vector<std::string>{"lift", "stairs", "escalator", "ramp",
                                                       "paternoster"}[below(5)];
        edge.vortex()->accessible = below(3) != 0;
        venue->vortices->push_back(edge.vortex());
      }
  }
  for (std::size_t i = 0; i < mall.nodes.size() / 8; ++i) {
    const std::string id = std::to_string(i);
    auto place = Location::make(
        *RawData::parse(R"({"id": "l)" + id + R"(", "name": "Place", "type": "shop"})"));
    const auto& node = mall.nodes[below(mall.nodes.size())];
    place->nodes.push_back(node);
    const auto edges = (*mall.graph)[*node];
    if (below(3) == 0) place->nodes.push_back(mall.nodes[below(mall.nodes.size())]);
    if (below(3) != 0) {
      auto polygon = Polygon::make(*RawData::parse(R"({"id": "p)" + id + R"("})"));
      polygon->entrances.push_back(edges[below(edges.size())].node());
      place->polygons.push_back(polygon);
      venue->polygons->push_back(polygon);
    }
    venue->locations->push_back(place);
  }
  return venue;
}

std::shared_ptr<Venue> packageVenue(const std::string& name) {
  const auto folder = *venuesFolder() / name;
  TwoFloorVenue records;
  records.venue = contentsOf(folder / "venue.json");
  records.maps = contentsOf(folder / "map.json");
  records.nodes = contentsOf(folder / "node.json");
  records.vortices = contentsOf(folder / "vortex.json");
  records.categories = contentsOf(folder / "category.json");
  records.polygons = contentsOf(folder / "polygon.json");
  records.locations = contentsOf(folder / "location.json");
  return records.load();
}

}  // namespace orivanta::test
