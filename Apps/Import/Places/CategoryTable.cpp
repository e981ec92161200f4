#include <boost/json.hpp>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

#include "Apps/Import/Places/Categories.hpp"
#include "Platform/Foundation/ResourceBundle.hpp"

namespace orivanta {

const foundation::ResourceBundle& categoryBundle();

}  // namespace orivanta

namespace orivanta::importer {

namespace json = boost::json;

namespace {

using Kind = package::PlaceKind;
using Texts = std::array<std::string_view, categoryLanguages.size()>;

Kind kindOf(std::string_view word) {
  constexpr std::pair<std::string_view, Kind> words[] = {
      {"shop", Kind::shop},         {"food", Kind::food},       {"room", Kind::room},
      {"office", Kind::office},     {"service", Kind::service}, {"information", Kind::information},
      {"toilet", Kind::toilet},     {"care", Kind::care},       {"transit", Kind::transit},
      {"vertical", Kind::vertical}, {"parking", Kind::parking}, {"leisure", Kind::leisure},
      {"green", Kind::green},       {"other", Kind::other}};
  for (const auto& [name, kind] : words)
    if (name == word) return kind;
  throw std::logic_error("categories.json: unknown kind");
}

std::string_view textOf(const json::value& value) { return value.as_string(); }

Texts textsOf(const json::value& value) {
  Texts texts;
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = textOf(value.at(categoryLanguages[i]));
  return texts;
}

// Owns the texts that the categories refer to.
struct Table {
  Table() {
    const auto file = categoryBundle().bytes("categories", "json").value();
    parsed = json::parse({reinterpret_cast<const char*>(file.data()), file.size()});
    for (const json::value& entry : parsed.as_array()) add(entry.as_object());
    for (const Category& category : categories) byId.emplace(category.id, &category);
  }

  void add(const json::object& entry) {
    Category category;
    category.id = textOf(entry.at("id"));
    if (const json::value* parent = entry.if_contains("parent")) category.parent = textOf(*parent);
    category.type = textOf(entry.at("type"));
    category.kind = kindOf(textOf(entry.at("kind")));
    category.names = textsOf(entry.at("names"));
    const json::value* one = entry.if_contains("one");
    category.singular = one == nullptr ? category.names : textsOf(*one);
    for (const char* key : {"tags", "words"})
      if (const json::value* lines = entry.if_contains(key))
        for (const json::value& line : lines->as_array()) category.values.push_back(textOf(line));
    categories.push_back(std::move(category));
  }

  json::value parsed;
  std::vector<Category> categories;
  std::map<std::string_view, const Category*> byId;
};

const Table& table() {
  static const Table loaded;
  return loaded;
}

}  // namespace

std::string_view Category::name(std::string_view language) const {
  const std::string_view tongue = language.substr(0, language.find('-'));
  for (std::size_t i = 0; i < categoryLanguages.size(); ++i)
    if (categoryLanguages[i] == tongue) return names[i];
  return names.front();
}

std::span<const Category> allCategories() { return table().categories; }

const Category& categoryWithId(std::string_view id) { return *table().byId.at(id); }

const Category& categoryOf(ConnectorKind kind) {
  switch (kind) {
    case ConnectorKind::elevator:
      return categoryWithId("lifts");
    case ConnectorKind::escalator:
      return categoryWithId("escalators");
    case ConnectorKind::stairs:
      return categoryWithId("stairs");
    case ConnectorKind::ramp:
      return categoryWithId("ramps");
    case ConnectorKind::movingWalkway:
      break;
  }
  return categoryWithId("walkways");
}

}  // namespace orivanta::importer
