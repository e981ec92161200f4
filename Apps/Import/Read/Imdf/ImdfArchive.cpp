#include "Apps/Import/Read/Imdf/ImdfArchive.hpp"

#include <boost/json/array.hpp>
#include <utility>

#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

std::string primaryLanguage(const std::string& tag) { return tag.substr(0, tag.find('-')); }

}  // namespace

std::string ImdfFeature::text(std::string_view key) const { return memberText(properties, key); }

std::string ImdfFeature::category() const { return lowerCase(text("category")); }

const ImdfFeature* ImdfArchive::find(const std::string& id, std::string_view type) const {
  const auto found = byId.find(id);
  if (found == byId.end()) return nullptr;
  const ImdfFeature& feature = features[found->second];
  return type.empty() || feature.type == type ? &feature : nullptr;
}

std::vector<const ImdfFeature*> ImdfArchive::ofType(const std::string& type) const {
  std::vector<const ImdfFeature*> found;
  if (const auto indices = byType.find(type); indices != byType.end())
    for (const std::size_t index : indices->second) found.push_back(&features[index]);
  return found;
}

std::optional<double> ImdfArchive::ordinal(const std::string& levelId) const {
  const ImdfFeature* level = find(levelId, "level");
  return level == nullptr ? std::nullopt : memberNumber(level->properties, "ordinal");
}

std::optional<double> ImdfArchive::levelOf(const ImdfFeature& feature) const {
  if (feature.type == "level") return memberNumber(feature.properties, "ordinal");
  if (const auto own = ordinal(feature.text("level_id"))) return own;
  if (const auto unit = find(feature.text("unit_id"), "unit"))
    return ordinal(unit->text("level_id"));
  if (const auto anchor = find(feature.text("anchor_id"), "anchor"))
    if (const auto unit = find(anchor->text("unit_id"), "unit"))
      return ordinal(unit->text("level_id"));
  for (const std::string& id : memberTexts(feature.properties, "unit_ids"))
    if (const ImdfFeature* unit = find(id, "unit"))
      if (const auto level = ordinal(unit->text("level_id"))) return level;
  return std::nullopt;
}

Names ImdfArchive::names(const json::object& properties, std::string_view key) const {
  Names names;
  const json::object* labels = memberObject(properties, key);
  if (labels == nullptr) {
    const json::value* plain = memberOf(properties, key);
    if (plain != nullptr && plain->is_string()) names.name = memberText(properties, key);
    return names;
  }
  const std::string* best = nullptr;
  int bestRank = 0;
  for (const auto& [tag, label] : *labels) {
    std::string text = label.is_string() ? memberText(*labels, {tag.data(), tag.size()}) : "";
    if (text.empty()) continue;
    const std::string lower = lowerCase(std::string_view(tag.data(), tag.size()));
    const auto entry = names.byLanguage.emplace(lower, std::move(text)).first;
    const int rank = lower == language                                     ? 4
                     : primaryLanguage(lower) == primaryLanguage(language) ? 3
                     : primaryLanguage(lower) == "en"                      ? 2
                                                                           : 1;
    if (rank <= bestRank) continue;
    bestRank = rank;
    best = &entry->second;
  }
  if (best != nullptr) names.name = *best;
  return names;
}

std::vector<std::string> imdfMembers(const ImdfFeature& relationship) {
  std::vector<std::string> ids;
  const json::object& properties = relationship.properties;
  const auto add = [&](const json::object* reference) {
    if (reference == nullptr) return;
    if (std::string id = memberText(*reference, "id"); !id.empty()) ids.push_back(std::move(id));
  };
  add(memberObject(properties, "origin"));
  if (const json::array* intermediary = memberArray(properties, "intermediary"))
    for (const json::value& each : *intermediary) add(each.if_object());
  add(memberObject(properties, "destination"));
  return ids;
}

}  // namespace orivanta::importer
