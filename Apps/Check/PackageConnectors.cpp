#include <fmt/format.h>

#include <boost/json/array.hpp>
#include <set>

#include "Apps/Check/PackageNetwork.hpp"
#include "Source/Guidance/Profile.hpp"

namespace orivanta::check {

namespace json = boost::json;

namespace {

bool isElevator(const Record& connector) {
  return guidance::connectorKindOf(connector.text("type").value_or("")) ==
         guidance::ConnectorKind::lift;
}

class ConnectorCheck {
 public:
  ConnectorCheck(const PackageRecords& records, Findings& findings)
      : records_(records), findings_(findings) {}

  void check() const {
    std::vector<const Record*> withinFloor;
    const Record* steps = nullptr;  // the first connector that is not accessible
    for (const Record& connector : records_[RecordKind::vortex].records) {
      if (!connector.kept) continue;
      if (isWithinFloor(connector)) withinFloor.push_back(&connector);
      const bool isAccessible = connector.numberIn("accessible").value_or(1.0) != 0.0;
      if (isAccessible && steps != nullptr) addTooLate(connector, *steps);
      if (!isAccessible && steps == nullptr) steps = &connector;
    }
    if (!withinFloor.empty()) addWithinFloor(withinFloor);
  }

 private:
  // Reports connectors that join nothing. Returns whether all nodes are on one floor, as of short
  // flights of steps.
  bool isWithinFloor(const Record& connector) const {
    std::set<std::string_view> nodes;
    std::set<std::string_view> floors;
    for (const json::value& element : elementsOf(connector, "nodes")) {
      const auto id = identifierIn(element, "");
      const Record* node = id ? records_.find(RecordKind::node, *id) : nullptr;
      if (node == nullptr || !node->kept) continue;
      nodes.insert(*id);
      floors.insert(*node->text("map"));
    }
    if (floors.size() > 1) return false;
    if (nodes.size() > 1 && !isElevator(connector)) return true;
    addOneFloor(connector, nodes.empty());
    return false;
  }

  void addTooLate(const Record& connector, const Record& steps) const {
    Finding finding = records_.findingAbout(connector, Severity::warning,
                                            "accessible-connector-too-late", "accessible");
    finding.message = fmt::format(
        "The connector is accessible, and stands behind \"{}\", which is not.", steps.label());
    finding.effect =
        "Accessible routes without a profile do not use it: of the file, they use only the "
        "connectors "
        "before the first one that is not accessible.";
    finding.advice = "List the accessible connectors first.";
    findings_.add(std::move(finding));
  }

  void addOneFloor(const Record& connector, bool isEmpty) const {
    Finding finding =
        records_.findingAbout(connector, Severity::warning, "connector-with-one-floor", "nodes");
    if (isEmpty) {
      finding.message = "The connector has no nodes.";
    } else {
      finding.message =
          fmt::format("All nodes of the connector are on the floor \"{}\".", finding.map);
    }
    finding.effect = "No route uses it to change floors.";
    finding.advice =
        "List a node on each floor in \"nodes\", and check the \"map\" of these nodes.";
    findings_.add(std::move(finding));
  }

  void addWithinFloor(const std::vector<const Record*>& connectors) const {
    Finding finding =
        records_.findingAbout(*connectors.front(), Severity::info, "connector-within-floor");
    finding.message = fmt::format(
        "{} join{} nodes of the same floor, as a short flight of steps does. This one is the "
        "first.",
        connectors.size() == 1 ? "One connector" : fmt::format("{} connectors", connectors.size()),
        connectors.size() == 1 ? "s" : "");
    finding.effect = "Routes use them within the floor.";
    finding.advice = "If one leads to another floor, check the \"map\" of its nodes.";
    findings_.add(std::move(finding));
  }

  const PackageRecords& records_;
  Findings& findings_;
};

}  // namespace

void checkConnectors(const PackageRecords& records, Findings& findings) {
  ConnectorCheck(records, findings).check();
}

}  // namespace orivanta::check
