#include "Apps/Import/Read/Stations/StationNetwork.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

#include "Apps/Import/DisjointSets.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/Stations/StationCodes.hpp"

namespace orivanta::importer {

namespace {

class NetworkReader {
 public:
  NetworkReader(Building& building, Findings& findings)
      : building_(building), findings_(findings) {}

  void read(std::vector<StationLayer>& layers) {
    building_.sourceNodes.reserve(countOf(layers, LayerKind::node));
    building_.sourceLinks.reserve(countOf(layers, LayerKind::link));
    forLayers(layers, LayerKind::node, &NetworkReader::addNode);
    forLayers(layers, LayerKind::link, &NetworkReader::addLink);
    shareElevatorClasses();
  }

 private:
  using Add = void (NetworkReader::*)(const StationLayer& layer, const StationFeature& feature);

  void forLayers(std::vector<StationLayer>& layers, LayerKind kind, Add add) {
    for (StationLayer& layer : layers) {
      if (layer.kind != kind) continue;
      for (const StationFeature& feature : layer.features) (this->*add)(layer, feature);
      layer.features = {};
    }
  }

  void report(const std::string& rule, const std::string& file, std::string_view id,
              std::string message, std::string effect, const char* advice) {
    Finding finding;
    finding.rule = rule;
    finding.source = id;
    finding.file = file;
    finding.message = std::move(message);
    finding.effect = std::move(effect);
    finding.advice = advice;
    findings_.add(std::move(finding));
  }

  void addNode(const StationLayer& layer, const StationFeature& feature) {
    const std::string id(feature["node_id"]);
    const std::optional<double> ordinal = stationOrdinal(feature["ordinal"]);
    if (id.empty() || !ordinal || feature.geometry.points.empty())
      return report("network-incomplete", layer.file, id,
                    "A node has no node_id, no ordinal or no point.", "It is left out.",
                    "Add what is missing.");
    if (!nodes_.emplace(id, building_.sourceNodes.size()).second)
      return report("id-not-unique", layer.file, id, "There are two nodes with this identifier.",
                    "The second one is left out.", "Give each node an identifier of its own.");
    building_.sourceNodes.push_back({id, {*ordinal, feature.geometry.points.front()}});
  }

  void addLink(const StationLayer& layer, const StationFeature& feature) {
    const std::string id(feature["link_id"]);
    addMissingNode(layer, feature);
    const auto from = nodes_.find(std::string(feature["start_id"]));
    const auto to = nodes_.find(std::string(feature["end_id"]));
    if (from == nodes_.end() || to == nodes_.end())
      return report("network-incomplete", layer.file, id,
                    fmt::format("The link from the node \"{}\" to the node \"{}\" has an end that "
                                "does not exist.",
                                feature["start_id"], feature["end_id"]),
                    "It is left out, so routes cannot use it.",
                    "Add the node, or correct start_id or end_id.");
    SourceLink link;
    link.id = uniqueId(layer, id);
    link.from = from->first;
    link.to = to->first;
    link.kind = kindOfLink(feature["route_type"]);
    link.direction = directionOfLink(feature["direction"]);
    if (link.kind == LinkKind::elevator)
      link.wheelchair = wheelchairOfElevator(feature["elevator"]);
    link.length = numberIn(feature["distance"]);
    if (link.length && !(*link.length > 0.0)) link.length.reset();
    const double level = building_.sourceNodes[from->second].spot.level;
    if (link.kind == LinkKind::walk && level == building_.sourceNodes[to->second].spot.level &&
        !feature.geometry.lines.empty() && feature.geometry.lines.front().size() > 2)
      return addBentLink(link, level, feature.geometry.lines.front());
    building_.sourceLinks.push_back(std::move(link));
  }

  // Links are told apart by their identifiers.
  std::string uniqueId(const StationLayer& layer, const std::string& own) {
    std::string id = own.empty() ? "link" + std::to_string(building_.sourceLinks.size()) : own;
    if (links_.emplace(id, 1).second) return id;
    const std::string source = id;
    do id = fmt::format("{}#{}", source, ++links_[source]);
    while (links_.contains(id));
    links_.emplace(id, 1);
    if (!own.empty())
      report("id-not-unique", layer.file, own, "There are two links with this identifier.",
             "The second one is imported as \"" + id + "\".",
             "Give each link an identifier of its own.");
    return id;
  }

  // A walk ends on the storey where it begins, so an end that is not among the nodes is known from
  // the line.
  void addMissingNode(const StationLayer& layer, const StationFeature& feature) {
    const std::string start(feature["start_id"]);
    const std::string end(feature["end_id"]);
    const bool first = !nodes_.contains(start);
    const std::string& missing = first ? start : end;
    const auto other = nodes_.find(first ? end : start);
    const auto& lines = feature.geometry.lines;
    if (nodes_.contains(missing) || missing.empty() || other == nodes_.end() || lines.empty() ||
        lines.front().size() < 2 || kindOfLink(feature["route_type"]) != LinkKind::walk)
      return;
    report("network-incomplete", layer.file, missing,
           "The node does not exist, but a link names it.", "A node is made where the link ends.",
           "Add the node.");
    const double level = building_.sourceNodes[other->second].spot.level;
    nodes_.emplace(missing, building_.sourceNodes.size());
    building_.sourceNodes.push_back(
        {missing, {level, first ? lines.front().front() : lines.front().back()}});
  }

  // A node at each bend, and a link for each straight part.
  void addBentLink(const SourceLink& whole, double level, const std::vector<Point>& line) {
    SourceLink part = whole;
    part.length.reset();
    for (std::size_t each = 1; each < line.size(); ++each) {
      const bool last = each + 1 == line.size();
      part.id = whole.id + '-' + std::to_string(each);
      part.to = whole.to;
      if (!last) {
        part.to = part.id;
        while (!nodes_.emplace(part.to, building_.sourceNodes.size()).second) part.to += '\'';
        building_.sourceNodes.push_back({part.to, {level, line[each]}});
      }
      building_.sourceLinks.push_back(part);
      part.from = part.to;
    }
  }

  // The links of an elevator are connected. Only some of them may state its class.
  void shareElevatorClasses() {
    std::unordered_map<std::string, std::size_t> numbers;
    std::vector<SourceLink*> links;
    for (SourceLink& link : building_.sourceLinks) {
      if (link.kind != LinkKind::elevator) continue;
      links.push_back(&link);
      for (const std::string& node : {link.from, link.to}) numbers.emplace(node, numbers.size());
    }
    DisjointSets sets(numbers.size());
    for (const SourceLink* link : links) sets.join(numbers.at(link->from), numbers.at(link->to));
    std::vector<Wheelchair> classes(numbers.size(), Wheelchair::unknown);
    const auto classOf = [&](const SourceLink& link) -> Wheelchair& {
      return classes[sets.find(numbers.at(link.from))];
    };
    for (const SourceLink* link : links) {
      Wheelchair& best = classOf(*link);
      if (link->wheelchair == Wheelchair::yes || best == Wheelchair::unknown)
        best = link->wheelchair;
    }
    for (SourceLink* link : links) link->wheelchair = classOf(*link);
  }

  Building& building_;
  Findings& findings_;
  std::unordered_map<std::string, std::size_t> nodes_;
  std::unordered_map<std::string, int> links_;  // how often each identifier was seen
};

}  // namespace

void readStationNetwork(std::vector<StationLayer>& layers, Building& building, Findings& findings) {
  NetworkReader(building, findings).read(layers);
}

}  // namespace orivanta::importer
