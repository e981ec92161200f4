#include "Apps/Import/Read/Osm/OsmValues.hpp"

#include <algorithm>
#include <charconv>

namespace orivanta::importer {

namespace {

std::string lowered(std::string_view text) {
  std::string result(text);
  for (char& character : result)
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
  return result;
}

// Whether the end of a key is a language such as "de", "zh-Hans" or "sr-Latn". Others, such as
// "etymology" and "left", are not.
bool isLanguage(std::string_view text) {
  const std::string_view primary = text.substr(0, text.find('-'));
  return (primary.size() == 2 || primary.size() == 3) && text.size() <= 12 &&
         std::all_of(primary.begin(), primary.end(), [](char c) { return c >= 'a' && c <= 'z'; }) &&
         std::all_of(text.begin(), text.end(), [](char c) {
           return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                  c == '-';
         });
}

Direction opposite(Direction direction) {
  if (direction == Direction::forward) return Direction::backward;
  if (direction == Direction::backward) return Direction::forward;
  return direction;
}

}  // namespace

std::string firstOf(const OsmTags& tags, std::initializer_list<std::string_view> keys) {
  for (const std::string_view key : keys)
    if (tags.has(key)) return std::string(tags[key]);
  return {};
}

std::map<std::string, std::string> translations(const OsmTags& tags, std::string_view key) {
  std::map<std::string, std::string> result;
  if (tags.has(key)) result.emplace("", tags[key]);
  for (const auto& [name, value] : tags) {
    if (name.size() <= key.size() + 1 || !name.starts_with(key) || name[key.size()] != ':')
      continue;
    const std::string_view language = name.substr(key.size() + 1);
    if (isLanguage(language)) result.emplace(lowered(language), value);
  }
  return result;
}

Names namesOf(const OsmTags& tags) {
  Names names;
  names.byLanguage = translations(tags, "name");
  names.byLanguage.erase("");
  names.name = firstOf(tags, {"name", "name:en"});
  if (names.name.empty() && !names.byLanguage.empty())
    names.name = names.byLanguage.begin()->second;
  if (names.name.empty()) names.name = firstOf(tags, {"brand", "ref"});
  return names;
}

bool isNamed(const OsmTags& tags) {
  return tags.has("name") || !translations(tags, "name").empty();
}

Access accessOf(const OsmTags& tags) {
  const std::string value = firstOf(tags, {"foot", "access"});
  if (value == "no") return Access::nobody;
  for (const std::string_view staff : {"private", "staff", "employees", "employee", "delivery",
                                       "permit", "authorized", "official", "emergency"})
    if (value == staff) return Access::staff;
  return Access::everybody;
}

Wheelchair wheelchairOf(const OsmTags& tags) {
  const std::string_view value = tags["wheelchair"];
  if (value == "yes" || value == "designated") return Wheelchair::yes;
  return value == "no" ? Wheelchair::no : Wheelchair::unknown;
}

std::optional<double> widthOf(const OsmTags& tags) {
  std::string text = firstOf(tags, {"width", "door:width", "est_width"});
  std::replace(text.begin(), text.end(), ',', '.');
  double width = 0.0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), width, std::chars_format::fixed);
  if (error != std::errc()) return std::nullopt;
  std::string_view unit(end, static_cast<std::size_t>(text.data() + text.size() - end));
  while (unit.starts_with(' ')) unit.remove_prefix(1);
  if (unit == "cm")
    width /= 100.0;
  else if (!unit.empty() && unit != "m")
    return std::nullopt;
  if (!(width >= 0.2 && width <= 200.0)) return std::nullopt;
  return width;
}

Direction directionOfLine(const OsmTags& tags) {
  const std::string_view conveying = tags["conveying"];
  if (conveying == "forward") return Direction::forward;
  if (conveying == "backward") return Direction::backward;
  if (conveying == "reversible") return Direction::both;
  const std::string oneway = firstOf(tags, {"oneway:foot", "oneway"});
  if (oneway == "yes" || oneway == "1") return Direction::forward;
  if (oneway == "-1" || oneway == "reverse") return Direction::backward;
  return conveying.empty() || conveying == "no" ? Direction::both : Direction::unknown;
}

Direction directionOfArea(const OsmTags& tags) {
  const Direction direction = directionOfLine(tags);
  if (direction != Direction::forward && direction != Direction::backward) return direction;
  if (tags.is("incline", "up")) return direction;
  return tags.is("incline", "down") ? opposite(direction) : Direction::unknown;
}

}  // namespace orivanta::importer
