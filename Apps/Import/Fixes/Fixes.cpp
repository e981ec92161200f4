#include "Apps/Import/Fixes/Fixes.hpp"

#include <fmt/format.h>

#include <boost/json.hpp>
#include <utility>

#include "Apps/Import/Fixes/Corrector.hpp"
#include "Apps/Import/Places/GeneratedNames.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Apps/Package/Records.hpp"
#include "Platform/Foundation/Files.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

constexpr std::size_t largestFile = 16U << 20U;

// The positions of connectors by all identifiers that a person may know them by.
std::multimap<std::string, std::size_t> connectorsById(const Building& building) {
  const IdIndex areas(building.areas);
  std::multimap<std::string, std::size_t> byId;
  for (std::size_t i = 0; i < building.connectors.size(); ++i) {
    const Connector& connector = building.connectors[i];
    byId.emplace(connector.id, i);
    byId.emplace(connector.source, i);
    for (const Stop& stop : connector.stops)
      for (const std::size_t area : areas.of(stop.area)) {
        byId.emplace(building.areas[area].id, i);
        byId.emplace(building.areas[area].source, i);
      }
  }
  return byId;
}

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
  const auto connectors = connectorsById(building);
  for (const auto& member : corrections_) {
    const std::string id = member.key();
    const auto [begin, end] = connectors.equal_range(id);
    if (begin == end && unknown_.contains(id))
      addIgnoredFix(findings, "fix-unknown-id", name_, id, "",
                    fmt::format("The source has no record \"{}\".", id),
                    "Check whether the source has changed, and correct or remove the entry.");
    if (!member.value().is_object()) continue;
    const json::value* name = member.value().get_object().if_contains("name");
    auto names = name == nullptr ? std::nullopt : namesIn(*name);
    if (!names) continue;
    preferLanguage({building.language}, *names);
    for (auto entry = begin; entry != end; ++entry)
      building.connectors[entry->second].names = *names;
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
