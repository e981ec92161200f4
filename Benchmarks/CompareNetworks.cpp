// Compares the walking network that the importer derives from the drawn areas of a building with a
// surveyed one.
//
//   orivanta_compare_networks [--source] [--draw FOLDER] PACKAGE SOURCE...
//
// PACKAGE is a venue package of the same building whose network was surveyed; "-" if there is none.
// With --source, the source's own network is compared instead of a derived one. Prints one line per
// figure: doors joined, pairs of rooms with a way, the ratio of the lengths, lines through walls,
// edges, connectors found, time and memory.
#include <fmt/format.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>
#include <queue>
#include <set>

#include "Apps/Import/DisjointSets.hpp"
#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Geometry/OpenShape.hpp"
#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Import.hpp"
#include "Benchmarks/NetworkDrawing.hpp"
#include "Benchmarks/SurveyedPackage.hpp"

namespace orivanta::benchmarks {

namespace {

using importer::Building;
using importer::NodeKind;
using importer::Point;

constexpr double unknown = std::numeric_limits<double>::infinity();

PlainNetwork plainNetwork(const importer::Network& network) {
  PlainNetwork plain;
  for (const importer::Node& node : network.nodes)
    plain.nodes.push_back({node.id, node.position, fmt::format("{:g}", node.level)});
  plain.neighbors.resize(plain.nodes.size());
  for (const importer::Edge& edge : network.edges) {
    plain.neighbors[edge.from].push_back(edge.to);
    if (!edge.oneWay) plain.neighbors[edge.to].push_back(edge.from);
  }
  plain.edges = network.edges.size();
  return plain;
}

std::vector<double> lengthsFrom(const PlainNetwork& network,
                                const std::vector<std::size_t>& starts) {
  std::vector<double> lengths(network.nodes.size(), unknown);
  using Entry = std::pair<double, std::size_t>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
  for (const std::size_t start : starts) open.emplace(lengths[start] = 0.0, start);
  while (!open.empty()) {
    const auto [length, node] = open.top();
    open.pop();
    if (length > lengths[node]) continue;
    for (const std::size_t next : network.neighbors[node]) {
      const double sum =
          length + package::distance(network.nodes[node].position, network.nodes[next].position);
      if (sum < lengths[next]) open.emplace(lengths[next] = sum, next);
    }
  }
  return lengths;
}

double shortest(const std::vector<double>& lengths, const std::vector<std::size_t>& ends) {
  double best = unknown;
  for (const std::size_t end : ends) best = std::min(best, lengths[end]);
  return best;
}

double quantile(std::vector<double> values, double share) {
  if (values.empty()) return 0.0;
  std::sort(values.begin(), values.end());
  return values[std::min(values.size() - 1,
                         static_cast<std::size_t>(share * static_cast<double>(values.size())))];
}

std::string share(std::size_t part, std::size_t whole) {
  return fmt::format(
      "{} of {} ({:.2f} %)", part, whole,
      whole == 0 ? 100.0 : 100.0 * static_cast<double>(part) / static_cast<double>(whole));
}

// The doors of each room, as nodes of the derived network, by the room's plain identifier.
std::map<std::string, std::vector<std::size_t>> doorsOfRooms(const Building& building) {
  std::map<std::string, std::size_t> nodes;
  for (std::size_t i = 0; i < building.network.nodes.size(); ++i)
    if (building.network.nodes[i].kind == NodeKind::door)
      nodes.emplace(building.network.nodes[i].of, i);
  std::map<std::string, std::vector<std::size_t>> rooms;
  for (const importer::Door& door : building.doors)
    if (const auto node = nodes.find(door.id); node != nodes.end())
      for (const std::string& area : door.areas)
        rooms[plainIdentifier(area)].push_back(node->second);
  return rooms;
}

void compareLengths(const Building& building, const SurveyedPackage& survey, bool list) {
  const PlainNetwork derived = plainNetwork(building.network);
  const auto doors = doorsOfRooms(building);
  struct Room {
    std::string id;
    const std::vector<std::size_t>* surveyed;
    const std::vector<std::size_t>* derived;
  };
  std::vector<Room> rooms;
  std::size_t missing = 0;
  std::set<std::string> seen;
  for (const auto& [id, entrances] : survey.entrances) {
    const std::string plain = plainIdentifier(id);
    const auto found = doors.find(plain);
    if (found == doors.end())
      ++missing;
    else if (seen.insert(plain).second)
      rooms.push_back({id, &entrances, &found->second});
  }
  fmt::print("rooms of both      {}; {} of the survey have no door here\n", rooms.size(), missing);
  std::map<std::string, std::size_t> without;
  std::size_t pairs = 0;
  std::size_t joined = 0;
  std::vector<std::pair<double, std::string>> ratios;
  const std::size_t step = std::max<std::size_t>(1, rooms.size() / 120);
  for (std::size_t i = 0; i < rooms.size(); i += step) {
    const std::vector<double> surveyed = lengthsFrom(survey.network, *rooms[i].surveyed);
    const std::vector<double> lengths = lengthsFrom(derived, *rooms[i].derived);
    for (std::size_t k = i + 1; k < rooms.size(); ++k) {
      const double expected = shortest(surveyed, *rooms[k].surveyed);
      if (expected == unknown || expected < 10.0) continue;
      ++pairs;
      const double length = shortest(lengths, *rooms[k].derived);
      if (length == unknown) {
        ++without[rooms[i].id];
        ++without[rooms[k].id];
        ratios.emplace_back(-1.0, rooms[i].id + " to " + rooms[k].id);
        continue;
      }
      ++joined;
      ratios.emplace_back(length / expected,
                          fmt::format("{} to {} ({:.1f} m, surveyed {:.1f} m)", rooms[i].id,
                                      rooms[k].id, length, expected));
    }
  }
  if (list)
    for (const auto& [id, count] : without)
      fmt::print("  without a way    {} to {} rooms\n", id, count);
  std::vector<double> values;
  for (const auto& [ratio, name] : ratios)
    if (ratio >= 0.0) values.push_back(ratio);
  fmt::print("pairs with a way   {}\n", share(joined, pairs));
  fmt::print("length ratio       median {:.3f}, p5 {:.3f}, p95 {:.3f}, max {:.2f}\n",
             quantile(values, 0.5), quantile(values, 0.05), quantile(values, 0.95),
             quantile(values, 1.0));
  std::sort(ratios.begin(), ratios.end());
  if (!ratios.empty())
    fmt::print("  lowest           {:.2f} {}\n", ratios.front().first, ratios.front().second);
  if (!ratios.empty())
    fmt::print("  highest          {:.2f} {}\n", ratios.back().first, ratios.back().second);
}

// The network with straight lines instead of the bends between the nodes for which `keeps` is true.
PlainNetwork withoutBends(PlainNetwork network, const std::vector<bool>& keeps) {
  std::vector<std::set<std::size_t>> around(network.nodes.size());
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    for (const std::size_t next : network.neighbors[i]) {
      around[i].insert(next);
      around[next].insert(i);
    }
  // What hangs on a line, such as a door, does not make a bend of it a crossing.
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    for (std::size_t leaf = i; !keeps[leaf] && around[leaf].size() == 1;) {
      const std::size_t on = *around[leaf].begin();
      around[leaf].clear();
      around[on].erase(leaf);
      std::erase(network.neighbors[on], leaf);
      network.neighbors[leaf].clear();
      leaf = on;
    }
  const auto isBend = [&](std::size_t i) { return !keeps[i] && around[i].size() == 2; };
  for (std::size_t i = 0; i < network.nodes.size(); ++i) {
    if (isBend(i)) continue;
    for (std::size_t& next : network.neighbors[i])
      for (std::size_t last = i; isBend(next);) {
        const std::size_t ahead =
            *around[next].begin() == last ? *around[next].rbegin() : *around[next].begin();
        last = std::exchange(next, ahead);
      }
  }
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    if (isBend(i)) network.neighbors[i].clear();
  return network;
}

// Of a source's own network: the lengths between the nodes that both have. The bends of its lines
// may be nodes here and not in the survey, so they are compared with and without them.
void compareSharedNodes(PlainNetwork derived, const SurveyedPackage& survey, bool bends) {
  std::map<std::string, std::size_t> known;
  for (std::size_t i = 0; i < derived.nodes.size(); ++i) known.emplace(derived.nodes[i].id, i);
  std::vector<std::pair<std::size_t, std::size_t>> both;
  std::vector<bool> shared(derived.nodes.size());
  for (std::size_t i = 0; i < survey.network.nodes.size(); ++i)
    if (const auto node = known.find(survey.network.nodes[i].id); node != known.end()) {
      both.emplace_back(i, node->second);
      shared[node->second] = true;
    }
  if (!bends) derived = withoutBends(std::move(derived), shared);
  std::size_t pairs = 0;
  std::size_t equal = 0;
  std::size_t missing = 0;
  std::size_t shorter = 0;
  std::size_t longer = 0;
  for (std::size_t i = 0; i < both.size(); i += std::max<std::size_t>(1, both.size() / 60)) {
    const std::vector<double> surveyed = lengthsFrom(survey.network, {both[i].first});
    const std::vector<double> lengths = lengthsFrom(derived, {both[i].second});
    for (const auto& [there, here] : both) {
      if (surveyed[there] == unknown || surveyed[there] < 1.0) continue;
      ++pairs;
      const double length = lengths[here];
      std::size_t* const kind = std::abs(length / surveyed[there] - 1.0) <= 0.01 ? &equal
                                : length == unknown                              ? &missing
                                : length < surveyed[there]                       ? &shorter
                                                                                 : &longer;
      constexpr std::size_t listed = 3;
      if (++*kind <= listed && kind != &equal)
        fmt::print("  {:<16} {} to {}: {:.2f}, {:.2f}\n",
                   kind == &missing   ? "without a way"
                   : kind == &shorter ? "shorter"
                                      : "longer",
                   survey.network.nodes[both[i].first].id, survey.network.nodes[there].id, length,
                   surveyed[there]);
    }
  }
  fmt::print(
      "shared nodes       {}{}; lengths within 1 %: {}; {} without a way, {} shorter, {} longer\n",
      both.size(), bends ? "" : ", bends cut off", share(equal, pairs), missing, shorter, longer);
}

// Borders that nobody may pass but at doors and connectors.
class Walls {
 public:
  Walls(const Building& building, double level)
      : walls_(wallsOf(building, level), 0.0), openings_(openingsOf(building, level), 0.0) {}

  bool blocks(Point a, Point b) const {
    return walls_.anyAlong({a, b}, [&](std::size_t i) {
      const importer::Segment& wall = walls_.segments()[i];
      if (!package::cross(a, b, wall.a, wall.b)) return false;
      const double across = package::cross(b - a, wall.b - wall.a);
      const Point meets = a + (b - a) * (package::cross(wall.a - a, wall.b - wall.a) / across);
      constexpr double opening = 1.0;
      return openings_.nearest(meets, opening) == importer::SegmentGrid::none;
    });
  }

 private:
  static std::vector<importer::Segment> wallsOf(const Building& building, double level) {
    importer::Shape shape = importer::walkableSpace(building, level);
    const importer::AreaIndex contents(building, level, [](const importer::Area& area) {
      return area.kind != importer::AreaKind::obstacle;
    });
    for (const importer::Area& area : building.areas)
      if (area.level == level && area.kind == importer::AreaKind::room)
        shape = importer::joined(std::move(shape), importer::openShape(area, contents));
    return importer::bordersOf(shape);
  }
  static std::vector<importer::Segment> openingsOf(const Building& building, double level) {
    std::vector<importer::Segment> openings;
    for (const importer::Door& door : building.doors)
      if (door.level == level)
        openings.push_back(door.line.size() < 2
                               ? importer::Segment{door.position, door.position}
                               : importer::Segment{door.line.front(), door.line.back()});
    for (const importer::Connector& connector : building.connectors)
      for (const importer::Stop& stop : connector.stops)
        if (stop.spot.level == level) openings.push_back({stop.spot.position, stop.spot.position});
    return openings;
  }
  importer::SegmentGrid walls_;
  importer::SegmentGrid openings_;
};

void countLinesThroughWalls(const Building& building) {
  std::size_t through = 0;
  for (const importer::Storey& storey : building.storeys) {
    const Walls walls(building, storey.ordinal);
    for (const importer::Edge& edge : building.network.edges) {
      const importer::Node& a = building.network.nodes[edge.from];
      const importer::Node& b = building.network.nodes[edge.to];
      if (a.level != storey.ordinal || !walls.blocks(a.position, b.position)) continue;
      if (++through <= 5)
        fmt::print("  through a wall   {} to {} on {:g} ({:.1f} {:.1f})\n", a.id, b.id, a.level,
                   a.position.x, a.position.y);
    }
  }
  fmt::print("through walls      {}\n", share(through, building.network.edges.size()));
}

void countDoors(const Building& building) {
  std::map<std::string, std::size_t> nodes;
  std::vector<bool> joinedToWay(building.network.nodes.size());
  for (std::size_t i = 0; i < building.network.nodes.size(); ++i)
    if (building.network.nodes[i].kind == NodeKind::door)
      nodes.emplace(building.network.nodes[i].of, i);
  for (const importer::Edge& edge : building.network.edges)
    for (const auto& [a, b] : {std::pair(edge.from, edge.to), std::pair(edge.to, edge.from)})
      if (building.network.nodes[b].kind != NodeKind::inside) joinedToWay[a] = true;
  std::size_t beside = 0;
  std::size_t joined = 0;
  for (const importer::Storey& storey : building.storeys) {
    const bool walkways = importer::hasWalkways(building, storey.ordinal);
    std::set<std::string> walkable;
    for (const importer::Area& area : building.areas)
      if (area.level == storey.ordinal && importer::isWalkway(area.kind, walkways))
        walkable.insert(area.id);
    for (const importer::Door& door : building.doors) {
      if (door.level != storey.ordinal || door.access == importer::Access::nobody ||
          std::none_of(door.areas.begin(), door.areas.end(),
                       [&](const std::string& id) { return walkable.contains(id); }))
        continue;
      ++beside;
      const auto node = nodes.find(door.id);
      if (node != nodes.end() && joinedToWay[node->second])
        ++joined;
      else
        fmt::print("  not joined       {} on {:g} ({:.1f} {:.1f})\n", door.id, door.level,
                   door.position.x, door.position.y);
    }
  }
  fmt::print("doors joined       {}\n", share(joined, beside));
  const auto guessed = std::count_if(building.doors.begin(), building.doors.end(),
                                     [](const importer::Door& door) { return door.guessed; });
  fmt::print("doors              {}, {} guessed\n", building.doors.size(), guessed);
}

// Rooms that are connected with the largest part of the network, connectors included.
void countReachableRooms(const Building& building, bool list) {
  const importer::Network& network = building.network;
  importer::DisjointSets parts(network.nodes.size());
  for (const importer::Edge& edge : network.edges) parts.join(edge.from, edge.to);
  std::map<std::string, std::size_t> boarding;
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    if (network.nodes[i].kind == NodeKind::boarding) {
      const auto [first, isNew] = boarding.emplace(network.nodes[i].of, i);
      if (!isNew) parts.join(i, first->second);
    }
  std::map<std::size_t, std::size_t> sizes;
  for (std::size_t i = 0; i < network.nodes.size(); ++i) ++sizes[parts.find(i)];
  std::size_t largest = 0;
  for (const auto& [part, size] : sizes)
    if (sizes[largest] < size) largest = part;
  std::map<std::string, bool> rooms;
  for (const importer::Area& area : building.areas)
    if (area.kind == importer::AreaKind::room) rooms.emplace(area.id, false);
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    if (const auto room = rooms.find(network.nodes[i].of);
        room != rooms.end() && parts.find(i) == largest)
      room->second = true;
  for (const importer::Area& area : building.areas) {
    if (!list || area.kind != importer::AreaKind::room || rooms.at(area.id)) continue;
    const auto doors = std::count_if(
        building.doors.begin(), building.doors.end(), [&](const importer::Door& door) {
          return std::find(door.areas.begin(), door.areas.end(), area.id) != door.areas.end();
        });
    fmt::print("  not reachable    {} on {:g}, {} doors, {:.0f} m2 ({:.1f} {:.1f})\n", area.id,
               area.level, doors, importer::areaOf(area.shape), area.shape.front().outer.front().x,
               area.shape.front().outer.front().y);
  }
  const auto reachable = static_cast<std::size_t>(
      std::count_if(rooms.begin(), rooms.end(), [](const auto& room) { return room.second; }));
  fmt::print("rooms reachable    {}\n", share(reachable, rooms.size()));
}

// How the surveyed coordinates and floors lie to those of the building.
struct Alignment {
  Point offset;
  std::map<std::string, double> levels;
  std::size_t matched = 0;
};

Alignment align(const Building& building, const SurveyedPackage& survey) {
  std::map<std::string, importer::Spot> known;
  const auto add = [&](const std::string& id, double level, Point position) {
    known[plainIdentifier(id)] = {level, position};
  };
  for (const importer::Node& node : building.network.nodes)
    if (node.kind == NodeKind::inside) add(node.of, node.level, node.position);
  for (const importer::Door& door : building.doors) add(door.source, door.level, door.position);
  for (const importer::SourceNode& node : building.sourceNodes)
    add(node.id, node.spot.level, node.spot.position);
  std::vector<double> x;
  std::vector<double> y;
  std::map<std::string, std::map<double, int>> votes;
  for (const PlainNetwork::Node& node : survey.network.nodes) {
    std::string id = node.id;
    if (id.ends_with("-i")) id.resize(id.size() - 2);
    const auto spot = known.find(plainIdentifier(id));
    if (spot == known.end()) continue;
    x.push_back(spot->second.position.x - node.position.x);
    y.push_back(spot->second.position.y - node.position.y);
    ++votes[node.floor][spot->second.level];
  }
  Alignment alignment{{quantile(x, 0.5), quantile(y, 0.5)}, {}, x.size()};
  // Floors without a known node are named by their level: "venue-B1", "venue-2".
  for (const PlainNetwork::Node& node : survey.network.nodes) {
    const std::string name = node.floor.substr(node.floor.rfind('-') + 1);
    if (name.empty()) continue;
    alignment.levels[node.floor] =
        name[0] == 'B' ? -std::atof(name.c_str() + 1) : std::atof(name.c_str());
  }
  for (const auto& [floor, levels] : votes)
    alignment.levels[floor] =
        std::max_element(levels.begin(), levels.end(), [](const auto& a, const auto& b) {
          return a.second < b.second;
        })->first;
  return alignment;
}

std::string typeOf(importer::ConnectorKind kind) {
  switch (kind) {
    case importer::ConnectorKind::elevator:
      return "elevator";
    case importer::ConnectorKind::escalator:
      return "escalator";
    case importer::ConnectorKind::stairs:
      return "stairs";
    default:
      return "ramp";
  }
}

void reportMissing(const PlainConnector& connector, const SurveyedPackage& survey,
                   const Alignment& alignment) {
  std::string stops;
  for (const std::size_t i : connector.nodes) {
    const PlainNetwork::Node& node = survey.network.nodes[i];
    const auto level = alignment.levels.find(node.floor);
    const Point position = node.position + alignment.offset;
    stops += fmt::format(" {:g} ({:.1f} {:.1f})",
                         level == alignment.levels.end() ? -99.0 : level->second, position.x,
                         position.y);
  }
  fmt::print("  not found        {}{}\n", connector.id, stops);
}

void reportUnknown(const importer::Connector& connector) {
  std::string stops;
  for (const importer::Stop& stop : connector.stops)
    stops += fmt::format(" {:g} ({:.1f} {:.1f})", stop.spot.level, stop.spot.position.x,
                         stop.spot.position.y);
  fmt::print("  not surveyed     {}{}\n", connector.id, stops);
}

void compareConnectors(const Building& building, const SurveyedPackage& survey, bool list) {
  const Alignment alignment = align(building, survey);
  fmt::print("aligned by         {} points, offset {:.2f} {:.2f}\n", alignment.matched,
             alignment.offset.x, alignment.offset.y);
  constexpr double near = 8.0;
  const auto stopsNear = [&](const importer::Connector& made, const PlainConnector& surveyed) {
    std::set<std::size_t> stops;
    for (const std::size_t i : surveyed.nodes) {
      const PlainNetwork::Node& node = survey.network.nodes[i];
      const auto level = alignment.levels.find(node.floor);
      if (level == alignment.levels.end()) continue;
      for (std::size_t k = 0; k < made.stops.size(); ++k)
        if (made.stops[k].spot.level == level->second &&
            package::distance(made.stops[k].spot.position, node.position + alignment.offset) < near)
          stops.insert(k);
    }
    return stops.size();
  };
  for (const char* type : {"elevator", "stairs", "escalator", "ramp"}) {
    std::size_t surveyed = 0;
    std::size_t found = 0;
    for (const PlainConnector& connector : survey.connectors) {
      if (connector.type != type || connector.nodes.size() < 2) continue;
      ++surveyed;
      const bool isFound =
          std::any_of(building.connectors.begin(), building.connectors.end(),
                      [&](const importer::Connector& made) {
                        return typeOf(made.kind) == type && stopsNear(made, connector) >= 2;
                      });
      if (isFound)
        ++found;
      else if (list)
        reportMissing(connector, survey, alignment);
    }
    std::size_t made = 0;
    std::size_t confirmed = 0;
    for (const importer::Connector& connector : building.connectors) {
      if (typeOf(connector.kind) != type || connector.stops.size() < 2) continue;
      ++made;
      if (std::any_of(survey.connectors.begin(), survey.connectors.end(),
                      [&](const PlainConnector& one) { return stopsNear(connector, one) >= 2; }))
        ++confirmed;
      else if (list)
        reportUnknown(connector);
    }
    fmt::print("{:<18} found {}; of those made surveyed {}\n", type, share(found, surveyed),
               share(confirmed, made));
  }
}

int compare(const std::vector<std::string>& arguments) {
  importer::Options options;
  options.network = importer::NetworkChoice::derive;
  std::filesystem::path drawings;
  std::vector<std::string> paths;
  bool list = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--source")
      options.network = importer::NetworkChoice::automatic;
    else if (arguments[i] == "--list")
      list = true;
    else if (arguments[i] == "--draw" && i + 1 < arguments.size())
      drawings = arguments[++i];
    else
      paths.push_back(arguments[i]);
  }
  if (paths.size() < 2) {
    fmt::print(stderr,
               "usage: orivanta_compare_networks [--source] [--list] [--draw FOLDER] PACKAGE|- "
               "SOURCE...\n");
    return 2;
  }
  options.sources.assign(paths.begin() + 1, paths.end());
  std::string stage;
  auto began = std::chrono::steady_clock::now();
  const auto finish = [&] {
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
    if (!stage.empty()) fmt::print("  {:<34} {:.2f} s\n", stage, took.count());
    began = std::chrono::steady_clock::now();
  };
  options.progress = [&](std::string_view name, double) {
    if (name == stage) return;
    finish();
    stage = name;
  };
  importer::Findings findings;
  const Building building = importer::importBuilding(options, findings);
  finish();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  fmt::print("processor time     {:.2f} s, {} MiB\n",
             static_cast<double>(usage.ru_utime.tv_sec) +
                 1e-6 * static_cast<double>(usage.ru_utime.tv_usec),
             usage.ru_maxrss / 1024);
  if (!drawings.empty())
    for (const importer::Storey& storey : building.storeys)
      drawNetwork(building, storey.ordinal, drawings / fmt::format("{:g}.svg", storey.ordinal));
  fmt::print("storeys            {}, areas {}, nodes {}, edges {}\n", building.storeys.size(),
             building.areas.size(), building.network.nodes.size(), building.network.edges.size());
  countDoors(building);
  countReachableRooms(building, list);
  countLinesThroughWalls(building);
  if (paths[0] == "-") return 0;
  const SurveyedPackage survey = readSurveyedPackage(paths[0]);
  fmt::print("edges              {:.2f} times (surveyed + doors)\n",
             static_cast<double>(building.network.edges.size()) /
                 static_cast<double>(survey.network.edges + building.doors.size()));
  compareLengths(building, survey, list);
  if (options.network != importer::NetworkChoice::derive)
    for (const bool bends : {true, false})
      compareSharedNodes(plainNetwork(building.network), survey, bends);
  compareConnectors(building, survey, list);
  return 0;
}

}  // namespace

}  // namespace orivanta::benchmarks

int main(int count, char** arguments) {
  try {
    return orivanta::benchmarks::compare({arguments + 1, arguments + count});
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
  }
}
