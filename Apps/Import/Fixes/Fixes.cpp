#include "Apps/Import/Fixes/Fixes.hpp"

#include <fmt/format.h>

#include <boost/json.hpp>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "Apps/Import/Fixes/Corrector.hpp"
#include "Apps/Import/Fixes/FixValues.hpp"
#include "Apps/Import/Places/GeneratedNames.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Apps/Package/Records.hpp"
#include "Platform/Foundation/Files.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

constexpr std::size_t largestFile = 16U << 20U;

// The positions of connectors by all identifiers that a person may know them by.
class ConnectorIds {
 public:
  explicit ConnectorIds(const Building& building) {
    std::map<std::tuple<double, double, double>, std::set<std::size_t>> atSpot;
    const auto keyOf = [](const Spot& spot) {
      return std::tuple(spot.level, spot.position.x, spot.position.y);
    };
    for (std::size_t i = 0; i < building.connectors.size(); ++i) {
      const Connector& connector = building.connectors[i];
      add(connector.id, i);
      add(connector.source, i);
      for (const Stop& stop : connector.stops) {
        add(stop.area, i);
        atSpot[keyOf(stop.spot)].insert(i);
      }
    }
    for (const Area& area : building.areas) addAlias(area.source, area.id);
    for (const ConnectorHint& hint : building.connectorHints)
      for (const std::string& area : hint.areas) {
        addAlias(hint.id, area);
        addAlias(hint.source, area);
      }
    std::map<std::string, const SourceNode*> nodes;
    for (const SourceNode& node : building.sourceNodes) nodes.emplace(node.id, &node);
    for (const SourceLink& link : building.sourceLinks) {
      if (link.kind == LinkKind::walk || !nodes.contains(link.from)) continue;
      for (const std::size_t i : atSpot[keyOf(nodes.at(link.from)->spot)]) add(link.id, i);
    }
  }

  const std::set<std::size_t>& of(const std::string& id) const {
    static const std::set<std::size_t> none;
    const auto found = byId_.find(id);
    return found == byId_.end() ? none : found->second;
  }

 private:
  void add(const std::string& id, std::size_t connector) {
    if (!id.empty()) byId_[id].insert(connector);
  }
  void addAlias(const std::string& alias, const std::string& id) {
    if (const auto found = byId_.find(id); found != byId_.end() && alias != id)
      for (const std::size_t connector : std::set(found->second)) add(alias, connector);
  }

  std::map<std::string, std::set<std::size_t>> byId_;
};

}  // namespace

Fixes::Fixes(const std::string& text, std::string name) : name_(std::move(name)) {
  json::error_code error;
  json::value value = json::parse(text, error);
  if (error)
    throw SourceError(
        fmt::format("{}: not JSON: {}; corrections are a JSON object from identifiers to objects",
                    name_, error.message()));
  if (!value.is_object())
    throw SourceError(fmt::format("{}: not a JSON object from identifiers to corrections", name_));
  corrections_ = std::move(value.get_object());
}

Fixes Fixes::read(const std::filesystem::path& file) {
  const auto text = foundation::readFile(file, largestFile);
  if (!text) throw SourceError(text.error().description);
  return {*text, file.filename().string()};
}

void Fixes::apply(Building& building, Findings& findings) {
  if (corrections_.empty()) return;
  Corrector corrector(building, name_, findings);
  for (const auto& member : corrections_) {
    const std::string id = member.key();
    if (!member.value().is_object())
      addIgnoredFix(findings, "fix-unusable", name_, id, "",
                    fmt::format("The correction of \"{}\" is no object with corrections.", id),
                    "See `orivanta import --help` for what a correction may contain.");
    else if (!corrector.apply(id, member.value().get_object()))
      unknown_.insert(id);
  }
  corrector.finish();
}

void Fixes::nameConnectors(Building& building, Findings& findings) const {
  if (corrections_.empty()) return;
  const ConnectorIds connectors(building);
  for (const auto& member : corrections_) {
    const std::string id = member.key();
    const std::set<std::size_t>& meant = connectors.of(id);
    if (meant.empty() && unknown_.contains(id))
      addIgnoredFix(findings, "fix-unknown-id", name_, id, "",
                    fmt::format("The source has no record \"{}\".", id),
                    "Check whether the source has changed, and correct or remove the entry.");
    if (!member.value().is_object()) continue;
    for (const auto& correction : member.value().get_object())
      if (unknown_.contains(id) && !meant.empty() && correction.key() != "name" &&
          correction.key() != "note")
        addIgnoredFix(findings, "fix-unusable", name_, id, correction.key(),
                      fmt::format("Of \"{}\", which several records form, only the name can be "
                                  "corrected.",
                                  id),
                      "Correct the records themselves.");
    const json::value* name = member.value().get_object().if_contains("name");
    auto names = name == nullptr ? std::nullopt : namesIn(*name);
    if (!names) continue;
    preferLanguage({building.language}, *names);
    for (const std::size_t i : meant) building.connectors[i].names = *names;
  }
}

std::string fixesSkeleton(const std::vector<Finding>& findings) {
  std::string text = "{\n";
  std::set<std::string> done;
  for (const Finding& finding : findings) {
    if (finding.source.empty() || !done.insert(finding.source).second) continue;
    if (done.size() > 1) text += ",\n";
    text += fmt::format("  {}: {}", json::serialize(json::value(finding.source)),
                        package::jsonLine(json::object{{"note", finding.message}}));
  }
  return text + (done.empty() ? "}\n" : "\n}\n");
}

}  // namespace orivanta::importer
