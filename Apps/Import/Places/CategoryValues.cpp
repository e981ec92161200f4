#include <algorithm>
#include <map>
#include <utility>

#include "Apps/Import/Places/Categories.hpp"
#include "Apps/Text/Letters.hpp"

namespace orivanta::importer {

namespace {

using Table = std::map<std::string_view, const Category*>;

const Table& known() {
  static const Table table = [] {
    Table made;
    for (const Category& category : allCategories())
      for (std::string_view rest : category.values)
        while (!rest.empty()) {
          const std::size_t end = std::min(rest.find(' '), rest.size());
          made.emplace(rest.substr(0, end), &category);
          rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    return made;
  }();
  return table;
}

const Category* find(std::string_view value) {
  const auto found = known().find(value);
  return found == known().end() ? nullptr : found->second;
}

// "climbing_hall" as "climbing hall".
std::string asWords(std::string_view value) {
  std::string text(value);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '_' || c == '.' || c == '\t'; }, ' ');
  return text;
}

// The category of tags with an unknown value, by key.
std::string_view categoryOfKey(std::string_view key) {
  constexpr std::pair<std::string_view, std::string_view> keys[] = {
      {"shop", "shopping"},
      {"office", "offices"},
      {"room", "rooms"},
      {"indoor", "rooms"},
      {"healthcare", "medical"},
      {"craft", "services"},
      {"leisure", "leisure"},
      {"tourism", "leisure"},
      {"amenity", "facilities"},
      {"sport", "fitness"},
      {"information", "information"},
      {"emergency", "safety"},
      {"railway", "transport"},
      {"public_transport", "transport"},
      {"toilets", "toilets"},
      {"aeroway", "transport"},
      {"cuisine", "restaurants"}};
  for (const auto& [name, category] : keys)
    if (name == key) return category;
  return "other";
}

CategoryMatch matchTag(std::string_view tag) {
  if (const Category* category = find(tag)) return {category, {}};
  const std::size_t equals = tag.find('=');
  const std::string_view key = tag.substr(0, equals);
  const std::string_view value = tag.substr(equals + 1);
  // Of several values, the first that is known.
  for (std::size_t from = 0; from < value.size();) {
    const std::size_t end = std::min(value.find(';', from), value.size());
    std::string one(key);
    one += '=';
    one += value.substr(from, end - from);
    if (const Category* category = find(one)) return {category, {}};
    from = end + 1;
  }
  return {&categoryWithId(categoryOfKey(key)), asWords(value)};
}

}  // namespace

CategoryMatch matchCategory(std::string_view value) {
  const std::string lower = text::lowerCase(value);
  if (lower.empty()) return {&categoryWithId("rooms"), {}};
  if (lower.find('=') != std::string::npos) return matchTag(lower);
  const std::size_t colon = lower.find(':');
  const std::string_view type =
      colon == std::string::npos ? std::string_view() : std::string_view(lower).substr(0, colon);
  std::string_view word =
      std::string_view(lower).substr(colon == std::string::npos ? 0 : colon + 1);
  const std::string unknown = asWords(word);
  while (!word.empty()) {
    if (const Category* category = find(word)) return {category, {}};
    const std::size_t dot = word.rfind('.');
    word = dot == std::string_view::npos ? std::string_view() : word.substr(0, dot);
  }
  if (type == "occupant" || type == "kiosk") return {&categoryWithId("shopping"), unknown};
  if (type == "unit") return {&categoryWithId("rooms"), unknown};
  if (type.empty()) return {&categoryWithId("rooms"), unknown};
  return {&categoryWithId("other"), unknown};
}

}  // namespace orivanta::importer
