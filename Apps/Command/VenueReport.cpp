#include "Apps/Command/VenueReport.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "Apps/Command/Table.hpp"
#include "Apps/Command/VenueDescription.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Attribution.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::command {

using foundation::label;
using foundation::printable;

namespace json = boost::json;

namespace {

constexpr std::size_t deepestIndentation = 20;
constexpr std::size_t mostNamesListed = 3;

std::vector<std::shared_ptr<Category>> distinctCategories(const Location& location) {
  std::vector<std::shared_ptr<Category>> categories;
  std::unordered_set<const Category*> seen;
  for (const auto& category : location.categories)
    if (seen.insert(category.get()).second) categories.push_back(category);
  return categories;
}

std::string floorsText(const Venue& venue) {
  Table table({Alignment::left, Alignment::left, Alignment::right, Alignment::right,
               Alignment::right, Alignment::right});
  table.add({"", "Floor", "Elevation", "Locations", "Nodes", "Polygons"});
  for (const FloorSummary& floor : floorSummaries(venue))
    table.add({label(floor.map->shortName), label(floor.map->name),
               fmt::format("{}", floor.map->elevation), fmt::format("{}", floor.locations),
               fmt::format("{}", floor.nodes), fmt::format("{}", floor.polygons)});
  return table.text();
}

std::string categoriesText(const Venue& venue) {
  std::string text;
  for (const CategoryLine& line : categoryTree(venue))
    text += fmt::format("{:{}}{} ({}){}\n", "", 2 + 2 * std::min(line.depth, deepestIndentation),
                        label(*line.category->name), locationCount(*line.category),
                        line.shownAbove ? ", see above" : "");
  return text;
}

std::string namesOf(const ConnectorGroup& group) {
  std::string names;
  for (std::size_t i = 0; i < std::min(group.connectors.size(), mostNamesListed); ++i)
    names += (i == 0 ? "" : ", ") + label(*group.connectors[i]->name);
  return group.connectors.size() > mostNamesListed ? names + ", ..." : names;
}

std::string connectorsText(const std::vector<ConnectorGroup>& groups) {
  Table table(
      {Alignment::left, Alignment::left, Alignment::right, Alignment::left, Alignment::left});
  for (const ConnectorGroup& group : groups)
    table.add({label(group.type), group.floors.empty() ? "no floor" : floorLabels(group.floors),
               fmt::format("{} x", group.connectors.size()),
               group.accessible ? "accessible" : "not accessible", namesOf(group)});
  return table.text(2);
}

json::array identifiers(const auto& records) {
  json::array ids;
  for (const auto& record : records) ids.emplace_back(*record->id);
  return ids;
}

json::array floorsJson(const Venue& venue) {
  json::array floors;
  for (const FloorSummary& floor : floorSummaries(venue))
    floors.push_back({{"id", *floor.map->id},
                      {"name", floor.map->name},
                      {"shortName", floor.map->shortName},
                      {"elevation", floor.map->elevation},
                      {"locations", floor.locations},
                      {"nodes", floor.nodes},
                      {"polygons", floor.polygons}});
  return floors;
}

json::array categoriesJson(const Venue& venue) {
  json::array categories;
  for (const auto& category : *venue.categories) {
    json::array parents;
    std::unordered_set<std::shared_ptr<Category>> seen;
    for (const auto& link : category->parents)
      if (const auto parent = link.lock(); parent && seen.insert(parent).second)
        parents.emplace_back(*parent->id);
    categories.push_back({{"id", *category->id},
                          {"name", *category->name},
                          {"parents", std::move(parents)},
                          {"locations", locationCount(*category)}});
  }
  return categories;
}

json::array connectorsJson(const std::vector<ConnectorGroup>& groups) {
  json::array connectors;
  for (const ConnectorGroup& group : groups)
    for (const auto& connector : group.connectors)
      connectors.push_back({{"id", *connector->id},
                            {"name", *connector->name},
                            {"type", group.type},
                            {"accessible", group.accessible},
                            {"floors", identifiers(group.floors)}});
  return connectors;
}

}  // namespace

std::string venueText(const Venue& venue, bool accessibleOnly) {
  std::string text = fmt::format("{} ({})\n", label(*venue.name), printable(*venue.slug));
  const auto [credit, license] = attributionOf(venue);
  if (!credit.empty()) text += printable(credit) + '\n';
  if (!license.empty()) text += fmt::format("License: {}\n", printable(license));
  text += fmt::format(
      "\n{} floors, {} locations, {} categories, {} connectors, {} nodes, {} polygons\n\n",
      venue.maps->size(), venue.locations->size(), venue.categories->size(), venue.vortices->size(),
      venue.nodes->size(), venue.polygons->size());
  text += floorsText(venue);
  if (const std::string tree = categoriesText(venue); !tree.empty())
    text += "\nCategories (number of locations)\n" + tree;
  if (const auto groups = connectorGroups(venue, accessibleOnly); !groups.empty())
    text += fmt::format("\n{}onnectors\n{}", accessibleOnly ? "Accessible c" : "C",
                        connectorsText(groups));
  return text;
}

json::object venueJson(const Venue& venue, bool accessibleOnly) {
  json::object result({{"id", *venue.id}, {"slug", *venue.slug}, {"name", *venue.name}});
  const auto [credit, license] = attributionOf(venue);
  if (!credit.empty()) result["attribution"] = credit;
  if (!license.empty()) result["license"] = license;
  const double unitsPerMeter = venue._data["unitsPerMetre"].doubleValue();
  if (unitsPerMeter > 0.0) result["unitsPerMetre"] = unitsPerMeter;
  result["counts"] = {
      {"floors", venue.maps->size()},           {"locations", venue.locations->size()},
      {"categories", venue.categories->size()}, {"connectors", venue.vortices->size()},
      {"nodes", venue.nodes->size()},           {"polygons", venue.polygons->size()}};
  result["floors"] = floorsJson(venue);
  result["categories"] = categoriesJson(venue);
  result["connectors"] = connectorsJson(connectorGroups(venue, accessibleOnly));
  return result;
}

std::string locationsText(const std::vector<std::shared_ptr<Location>>& locations) {
  Table table({Alignment::left, Alignment::left, Alignment::left, Alignment::left});
  for (const auto& location : locations) {
    std::string categories;
    for (const auto& category : distinctCategories(*location))
      categories += (categories.empty() ? "" : ", ") + label(*category->name);
    table.add({printable(*location->id), label(*location->name), floorLabels(floorsOf(*location)),
               std::move(categories)});
  }
  return table.text();
}

json::array locationsJson(const std::vector<std::shared_ptr<Location>>& locations) {
  json::array array;
  for (const auto& location : locations) {
    json::array categories;
    for (const auto& category : distinctCategories(*location))
      categories.push_back({{"id", *category->id}, {"name", *category->name}});
    array.push_back({{"id", *location->id},
                     {"name", *location->name},
                     {"type", *location->type},
                     {"floors", identifiers(floorsOf(*location))},
                     {"categories", std::move(categories)}});
  }
  return array;
}

}  // namespace orivanta::command
