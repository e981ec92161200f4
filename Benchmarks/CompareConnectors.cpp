#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>

#include "Benchmarks/NetworkFigures.hpp"

namespace orivanta::benchmarks {

using importer::Building;
using importer::NodeKind;
using importer::Point;

namespace {

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

}  // namespace

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

}  // namespace orivanta::benchmarks
