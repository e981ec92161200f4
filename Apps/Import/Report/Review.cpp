#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <string>

#include "Apps/Import/Connectors/FromLines.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Geometry/SegmentGrid.hpp"
#include "Apps/Import/IdMap.hpp"
#include "Apps/Import/Report/ReviewPlaces.hpp"
#include "Apps/Import/Report/Summary.hpp"
#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

namespace {

constexpr std::size_t listedRooms = 5;
constexpr double nearLoose = 15.0;  // meters

// Looks for what visitors would miss, and reports it.
class Reviewer {
 public:
  Reviewer(const Building& building, Findings& findings)
      : building_(building), findings_(findings), parts_(networkParts(building)) {
    for (const Place& place : building.places) places_.emplace(place.id, &place);
    for (const Storey& storey : building.storeys)
      storeys_.emplace(storey.ordinal,
                       storey.names.name.empty() ? storey.shortName : storey.names.name);
    findLooseConnectors();
    for (const Door& door : building.doors)
      for (const std::string& area : door.areas) withDoors_.insert(area);
  }

  void review() {
    reviewRooms();
    reviewParts();
    for (const Connector& connector : building_.connectors) reviewConnector(connector);
    reviewUnusedAreas();
    reviewPlaces(building_, parts_, findings_);
  }

 private:
  std::string storeyName(double level) const {
    const auto name = storeys_.find(level);
    if (name != storeys_.end() && !name->second.empty()) return name->second;
    return fmt::format("level {}", level);
  }

  static Point middleOf(const Area& area) {
    Point sum;
    double count = 0.0;
    if (!area.shape.empty())
      for (const Point point : area.shape.front().outer) {
        sum = sum + point;
        count += 1.0;
      }
    return count == 0.0 ? sum : sum * (1.0 / count);
  }

  std::string titleOf(const Area& area) const {
    const auto place = places_.find(area.place);
    if (place != places_.end() && !place->second->names.generated)
      return fmt::format("\"{}\"", place->second->names.name);
    return area.source.empty() ? area.id : area.source;
  }

  // Rooms that no node belongs to.
  void reviewRooms() {
    for (const std::size_t index : parts_.withoutNodes) {
      const Area& area = building_.areas[index];
      const bool door = withDoors_.contains(area.id);
      findings_.add(
          {.rule = door ? "unreachable" : "room-without-door",
           .source = area.source,
           .level = area.level,
           .position = middleOf(area),
           .message =
               door ? fmt::format("The doors of the room {} lead to no walkway.", titleOf(area))
                    : fmt::format("The room {} has no door, and none could be guessed.",
                                  titleOf(area)),
           .effect = "No route leads into it.",
           .advice = door ? "Draw the area in front of its door as a corridor, or move the door "
                            "onto the border of the corridor."
                          : "Draw a door on its border, or give it one with --fixes."});
    }
  }

  // Rooms in parts of the network that nothing joins with the main part.
  void reviewParts() {
    for (std::size_t part = 1; part < parts_.rooms.size(); ++part) {
      const std::vector<std::size_t>& rooms = parts_.rooms[part];
      if (rooms.empty()) continue;
      std::map<double, std::size_t> levels;
      for (const std::size_t room : rooms) ++levels[building_.areas[room].level];
      const double level =
          std::max_element(levels.begin(), levels.end(), [](const auto& a, const auto& b) {
            return a.second < b.second;
          })->first;
      std::string names;
      for (std::size_t i = 0; i < std::min(rooms.size(), listedRooms); ++i)
        names += (i == 0 ? "" : ", ") + titleOf(building_.areas[rooms[i]]);
      if (rooms.size() > listedRooms)
        names += fmt::format(" and {} more", rooms.size() - listedRooms);
      const Area& first = building_.areas[rooms.front()];
      findings_.add({.rule = "unreachable",
                     .source = first.source,
                     .level = first.level,
                     .position = middleOf(first),
                     .message = fmt::format(
                         "{} on {} cannot be reached from the rest of the building: {}.",
                         rooms.size() == 1 ? "One room" : fmt::format("{} rooms", rooms.size()),
                         storeyName(level), names),
                     .effect = "No route leads there.",
                     .advice = adviceFor(part)});
    }
  }

  // Finds for each part the nearest connector that has no second stop.
  void findLooseConnectors() {
    std::map<double, std::vector<std::size_t>> nodes;  // by storey
    for (std::size_t i = 0; i < parts_.partOf.size(); ++i)
      nodes[building_.network.nodes[i].level].push_back(i);
    std::map<double, SegmentGrid> grids;
    for (const auto& [level, list] : nodes) {
      std::vector<Segment> points;
      points.reserve(list.size());
      for (const std::size_t i : list) {
        const Point point = building_.network.nodes[i].position;
        points.push_back({point, point});
      }
      grids.emplace(level, SegmentGrid(std::move(points), 0.0));
    }
    std::vector<double> nearest(parts_.rooms.size(), nearLoose);
    loose_.resize(parts_.rooms.size());
    for (const Connector& connector : building_.connectors) {
      if (connector.stops.size() != 1) continue;
      const Spot& spot = connector.stops.front().spot;
      const auto grid = grids.find(spot.level);
      if (grid == grids.end()) continue;
      grid->second.eachNear(spot.position, nearLoose, [&](std::size_t k) {
        const std::size_t part = parts_.partOf[nodes.at(spot.level)[k]];
        const double away = package::distance(grid->second.segments()[k].a, spot.position);
        if (away >= nearest[part]) return;
        nearest[part] = away;
        loose_[part] = &connector;
      });
    }
  }

  std::string adviceFor(std::size_t part) const {
    const Connector* connector = loose_[part];
    if (connector == nullptr)
      return "Draw the corridor, the door or the stairs that join it with the rest.";
    return fmt::format(
        "The {} {} would join it: say on which levels it ends, or join it with --fixes.",
        wordFor(connector->kind), connector->source);
  }

  void reviewConnector(const Connector& connector) {
    if (connector.stops.empty()) return;
    const Spot& spot = connector.stops.front().spot;
    const bool oneStorey =
        std::all_of(connector.stops.begin(), connector.stops.end(),
                    [&](const Stop& stop) { return stop.spot.level == spot.level; });
    const std::string title = fmt::format("The {} {}", wordFor(connector.kind), connector.source);
    if (connector.stops.size() < 2 || (oneStorey && connector.kind == ConnectorKind::elevator))
      findings_.add(
          {.rule = connector.kind == ConnectorKind::elevator ? "connector-with-one-floor"
                                                             : "stairs-lead-nowhere",
           .source = connector.source,
           .level = spot.level,
           .position = spot.position,
           .message = fmt::format("{} on {} {} to no other storey.", title, storeyName(spot.level),
                                  connector.kind == ConnectorKind::stairs ? "lead" : "leads"),
           .effect = "No route uses it.",
           .advice = "Draw its other end at the same position on the next storey, or list all of "
                     "its levels."});
    if (!connector.directionKnown && connector.stops.size() >= 2)
      findings_.add(
          {.severity = Severity::info,
           .rule = "direction-unknown",
           .source = connector.source,
           .level = spot.level,
           .position = spot.position,
           .message = fmt::format("The direction of {} {} is not known.", wordFor(connector.kind),
                                  connector.source),
           .effect = "Routes use it in both directions.",
           .advice = "State the direction (in OpenStreetMap: conveying=forward or backward)."});
  }

  // Drawn stairs and elevators that no connector shows.
  void reviewUnusedAreas() {
    if (building_.sourceLinks.empty()) return;
    IdSet used;
    for (const Connector& connector : building_.connectors)
      for (const Stop& stop : connector.stops) used.insert(stop.area);
    for (const Area& area : building_.areas) {
      const bool connects = area.kind == AreaKind::stairs || area.kind == AreaKind::escalator ||
                            area.kind == AreaKind::elevator;
      if (!connects || used.contains(area.id)) continue;
      findings_.add(
          {.severity = Severity::info,
           .rule = "stairs-lead-nowhere",
           .source = area.source,
           .level = area.level,
           .position = middleOf(area),
           .message = fmt::format("The {} {} on {} belong to no link of the walking network.",
                                  area.kind == AreaKind::elevator    ? "elevator"
                                  : area.kind == AreaKind::escalator ? "escalator"
                                                                     : "stairs",
                                  area.source, storeyName(area.level)),
           .effect = "It is drawn, but no route uses it.",
           .advice = "If it is in use, add its link to the network."});
    }
  }

  const Building& building_;
  Findings& findings_;
  NetworkParts parts_;
  std::vector<const Connector*> loose_;  // for each part; may be null
  std::map<double, std::string> storeys_;
  IdMap<const Place*> places_;
  IdSet withDoors_;
};

}  // namespace

void reviewBuilding(const Building& building, Findings& findings) {
  Reviewer(building, findings).review();
}

}  // namespace orivanta::importer
