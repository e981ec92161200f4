#include <algorithm>
#include <boost/json/array.hpp>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Apps/Import/Read/Imdf/ImdfArchive.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace {

namespace json = boost::json;

using Identifiers = std::unordered_map<std::string, std::string_view>;  // by those in lower case

bool isReference(std::string_view key) {
  return key.ends_with("_id") || key.ends_with("_ids") || key == "parents" || key == "id" ||
         key == "origin" || key == "destination" || key == "intermediary";
}

// Looks at the first units, which all archives have.
bool isMismatched(const ImdfArchive& archive) {
  constexpr std::size_t mostUnits = 10;
  const auto units = archive.byType.find("unit");
  if (units == archive.byType.end()) return false;
  for (std::size_t i = 0; i < std::min(mostUnits, units->second.size()); ++i) {
    const std::string level = archive.features[units->second[i]].text("level_id");
    if (!level.empty() && !archive.byId.contains(level)) return true;
  }
  return false;
}

// References that mean an identifier exactly stay as they are.
void match(json::value& value, const ImdfArchive& archive, const Identifiers& identifiers) {
  if (json::array* array = value.if_array())
    for (json::value& each : *array) match(each, archive, identifiers);
  if (json::object* object = value.if_object())
    if (json::value* id = object->if_contains("id")) match(*id, archive, identifiers);
  json::string* text = value.if_string();
  if (text == nullptr || archive.byId.contains(std::string(*text))) return;
  const auto found = identifiers.find(lowerCase(std::string_view(*text)));
  if (found != identifiers.end()) *text = found->second;
}

}  // namespace

void matchImdfReferences(ImdfArchive& archive) {
  if (!isMismatched(archive)) return;
  Identifiers identifiers;
  for (const ImdfFeature& feature : archive.features)
    identifiers.emplace(lowerCase(feature.id), feature.id);
  for (ImdfFeature& feature : archive.features)
    for (auto& member : feature.properties)
      if (isReference(std::string_view(member.key()))) match(member.value(), archive, identifiers);
}

}  // namespace orivanta::importer
