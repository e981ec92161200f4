#include "Apps/Check/PackageNetwork.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/json/array.hpp>
#include <cstdint>
#include <unordered_map>

#include "Apps/Import/DisjointSets.hpp"
#include "Source/Guidance/Profile.hpp"

namespace orivanta::check {

namespace json = boost::json;

namespace {

using Number = std::uint32_t;

// Lifts, stairs and ramps are used in both directions; of other connectors, one-way paths tell the
// direction.
bool isTwoWay(const Record& connector) {
  using guidance::ConnectorKind;
  const auto kind = guidance::connectorKindOf(connector.text("type").value_or(""));
  return kind != ConnectorKind::escalator && kind != ConnectorKind::other;
}

bool isMarkedOneWay(const json::value& path) {
  const json::value* mark = path.get_object().if_contains("oneWay");
  return mark != nullptr && mark->is_bool() && mark->get_bool();
}

class Network {
 public:
  Network(const PackageRecords& records, Findings& findings)
      : records_(records), findings_(findings), parts_(records[RecordKind::node].records.size()) {
    readConnectors();
    readPaths();
  }

  void checkPaths() const {
    for (Number from = 0; from < nodes().size(); ++from)
      for (const Path& path : paths_[from]) {
        const bool leadsBack = hasPath(path.to, from);
        if (!path.meant && !leadsBack) addOneWay(from, path.to);
        if (elevationOf(from) != elevationOf(path.to) && (from < path.to || !leadsBack))
          addBetweenFloors(from, path.to);
      }
  }

  void checkNodes() const {
    for (Number number = 0; number < nodes().size(); ++number)
      if (nodes()[number].kept && paths_[number].empty() && !hasIncoming_[number])
        checkLonely(number);
  }

  void checkPlaces() {
    const auto places = placesByPart();
    if (places.size() < 2) return;
    const auto main = mainPart(places);
    for (const Record& place : records_[RecordKind::location].records)
      if (place.kept) checkPlace(place, main);
  }

 private:
  struct Path {
    Number to;
    bool meant;  // a path in one direction is meant
  };

  const std::vector<Record>& nodes() const { return records_[RecordKind::node].records; }

  std::optional<Number> numberOf(std::optional<std::string_view> id) const {
    const Record* node = id ? records_.find(RecordKind::node, *id) : nullptr;
    if (node == nullptr || !node->kept) return std::nullopt;
    return static_cast<Number>(node - nodes().data());
  }

  void readConnectors() {
    connectors_.resize(nodes().size(), 0);
    directed_.resize(nodes().size(), false);
    for (const Record& connector : records_[RecordKind::vortex].records) {
      if (!connector.kept) continue;
      std::optional<Number> first;
      for (const json::value& element : elementsOf(connector, "nodes")) {
        const auto number = numberOf(identifierIn(element, ""));
        if (!number) continue;
        ++connectors_[*number];
        if (!isTwoWay(connector)) directed_[*number] = true;
        parts_.join(*number, first.value_or(*number));
        first = number;
      }
    }
  }

  void readPaths() {
    paths_.resize(nodes().size());
    hasIncoming_.resize(nodes().size(), false);
    for (Number from = 0; from < nodes().size(); ++from) {
      if (numberOf(nodes()[from].text("id")) != from) continue;  // left out
      for (const json::value& element : elementsOf(nodes()[from], "paths")) {
        const auto to = numberOf(identifierIn(element, "node"));
        if (!to || *to == from) continue;
        paths_[from].push_back({*to, directed_[from] || directed_[*to] || isMarkedOneWay(element)});
        hasIncoming_[*to] = true;
        parts_.join(from, *to);
      }
      std::sort(paths_[from].begin(), paths_[from].end(),
                [](const Path& first, const Path& second) { return first.to < second.to; });
    }
  }

  // Floors at the same elevation, such as one indoors and one outdoors, may be joined by paths.
  double elevationOf(Number node) const {
    const Record* map = records_.find(RecordKind::map, nodes()[node].text("map").value_or(""));
    return map != nullptr ? map->numberIn("elevation").value_or(0.0) : 0.0;
  }

  bool hasPath(Number from, Number to) const {
    const auto& list = paths_[from];
    const auto found = std::lower_bound(
        list.begin(), list.end(), to, [](const Path& path, Number node) { return path.to < node; });
    return found != list.end() && found->to == to;
  }

  void addOneWay(Number from, Number to) const {
    Finding finding =
        records_.findingAbout(nodes()[from], Severity::warning, "one-way-path", "paths");
    const std::string name = nodes()[from].label();
    finding.message = fmt::format("A path leads from \"{}\" to \"{}\", and none back.", name,
                                  nodes()[to].label());
    finding.effect = "Routes use it in this direction only.";
    finding.advice = fmt::format(
        "Add {{\"node\": \"{}\"}} to the \"paths\" of \"{}\". If one direction is meant, add "
        "\"oneWay\": true to the path.",
        name, nodes()[to].label());
    findings_.add(std::move(finding));
  }

  void addBetweenFloors(Number from, Number to) const {
    Finding finding =
        records_.findingAbout(nodes()[from], Severity::warning, "path-between-floors", "paths");
    finding.message = fmt::format(
        "A path leads from \"{}\" on the floor \"{}\" to \"{}\" on \"{}\".", nodes()[from].label(),
        *nodes()[from].text("map"), nodes()[to].label(), *nodes()[to].text("map"));
    finding.effect = "Routes change floors there, and instructions do not mention it.";
    finding.advice = "Correct the \"map\" of one of the nodes, or join the floors by a connector.";
    findings_.add(std::move(finding));
  }

  // A node at which nothing begins or ends except perhaps one connector.
  void checkLonely(Number number) const {
    if (connectors_[number] > 1) return;
    const bool boards = connectors_[number] == 1;
    Finding finding =
        records_.findingAbout(nodes()[number], Severity::warning, "node-without-paths", "paths");
    finding.message =
        fmt::format("No path leads to or from the node \"{}\"{}.", nodes()[number].label(),
                    boards ? ", where a connector is entered" : "");
    finding.effect = boards ? "Nobody reaches the connector there, or leaves it."
                            : "No route leads to the node.";
    finding.advice = "Add paths that join it with its neighbors, in both directions.";
    findings_.add(std::move(finding));
  }

  std::optional<Number> nodeOf(const Record& place) const {
    for (const json::value& element : elementsOf(place, "nodes"))
      if (const auto number = numberOf(identifierIn(element, "node"))) return number;
    return std::nullopt;
  }

  std::unordered_map<std::size_t, std::size_t> placesByPart() {
    std::unordered_map<std::size_t, std::size_t> places;
    for (const Record& place : records_[RecordKind::location].records)
      if (const auto node = nodeOf(place); node && place.kept) ++places[parts_.find(*node)];
    return places;
  }

  // The part with most places; of several, the one with the first place in the file.
  std::size_t mainPart(const std::unordered_map<std::size_t, std::size_t>& places) {
    std::size_t main = 0;
    std::size_t most = 0;
    for (const Record& place : records_[RecordKind::location].records) {
      const auto node = place.kept ? nodeOf(place) : std::nullopt;
      const std::size_t part = node ? parts_.find(*node) : 0;
      if (node && places.at(part) > most) {
        main = part;
        most = places.at(part);
      }
    }
    return main;
  }

  void checkPlace(const Record& place, std::size_t main) {
    for (const json::value& element : elementsOf(place, "nodes"))
      if (const auto number = numberOf(identifierIn(element, "node")))
        if (parts_.find(*number) == main) return;
    const auto node = nodeOf(place);
    if (!node) return;
    Finding finding = records_.findingAbout(place, Severity::warning, "unreachable", "nodes");
    finding.message = fmt::format("Nothing joins the place \"{}\" with most other places.",
                                  place.text("name").value_or(""));
    finding.effect = "No route leads from them to the place, or back.";
    finding.advice = fmt::format(
        "Add paths between the surroundings of the node \"{}\" and the rest of the network, or a "
        "connector to its floor.",
        nodes()[*node].label());
    findings_.add(std::move(finding));
  }

  const PackageRecords& records_;
  Findings& findings_;
  importer::DisjointSets parts_;          // that paths and connectors join, in whatever direction
  std::vector<std::vector<Path>> paths_;  // of each node, by the other end
  std::vector<bool> hasIncoming_;
  std::vector<Number> connectors_;  // how many have the node
  std::vector<bool> directed_;      // a node of a connector that may have a direction
};

}  // namespace

void checkNetwork(const PackageRecords& records, Findings& findings) {
  Network network(records, findings);
  network.checkPaths();
  network.checkNodes();
  network.checkPlaces();
}

}  // namespace orivanta::check
