#include "Source/Guidance/Steps/Surroundings.hpp"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "Source/Category.hpp"
#include "Source/Guidance/Network/ConnectorSign.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::guidance {

namespace {

constexpr double soleKindMeters = 30.0;

bool isBlank(const std::string& text) {
  return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

}  // namespace

Surroundings::Surroundings(const Venue& venue, const GuideData& data)
    : data_(data),
      metersPerUnit_(1.0 / data.network.unitsPerMeter()),
      nodes_(venue.nodes.value_or(NodeList())),
      locations_(venue.locations.value_or(std::vector<std::shared_ptr<Location>>())),
      connectors_(venue.vortices.value_or(std::vector<std::shared_ptr<Vortex>>())) {
  for (const auto& place : locations_) addEntrances(place);
  std::sort(kinds_.begin(), kinds_.end());
  findNames();
  const ConnectorSigns signs(venue);
  for (const auto& connector : connectors_)
    signs_.emplace(connector.get(), signs.signOf(*connector));
  for (const auto& place : locations_) addInside(place);
}

std::string Surroundings::spokenName(const Location& place) const {
  const auto sign = signs_.find(&place);
  if (sign != signs_.end()) return sign->second;
  return hasGeneratedName(place) ? std::string() : place.name.value_or("");
}

void Surroundings::addEntrances(const std::shared_ptr<Location>& place) {
  bool hasDoors = false;
  for (const auto& polygon : place->polygons)
    for (const auto& node : polygon->entrances) {
      addEntrance(place, node);
      doors_.insert(node.get());
      hasDoors = true;
    }
  if (hasDoors) return;
  for (const auto& node : place->nodes) addEntrance(place, node);
}

void Surroundings::addEntrance(const std::shared_ptr<Location>& place,
                               const std::shared_ptr<Node>& node) {
  if (!node) return;
  auto& places = places_[node.get()];
  if (!places.empty() && places.back() == place) return;
  places.push_back(place);
  if (place->categories.empty() || !place->categories.front()) return;
  if (!std::isfinite(node->x) || !std::isfinite(node->y)) return;  // would break the order
  kinds_.push_back({place->categories.front().get(), node->map.get(), node->x * metersPerUnit_,
                    node->y * metersPerUnit_, place.get()});
}

void Surroundings::addInside(const std::shared_ptr<Location>& place) {
  const auto* known = data_.places.find(place.get());
  if (known == nullptr || !known->isRoom || isBlank(spokenName(*place))) return;
  for (const auto vertex : known->nodes)
    if (data_.network.vertex(vertex).room != GuideNetwork::none)
      rooms_[data_.network.node(vertex).get()].push_back(place);
}

void Surroundings::findNames() {
  std::unordered_map<std::string, const Location*> owners;  // null if there are several
  for (const auto& place : locations_) {
    const std::string name = caseFolded(place->name.value_or(""));
    const auto [entry, isNew] = owners.try_emplace(name, place.get());
    if (!isNew && entry->second != place.get()) entry->second = nullptr;
  }
  for (const auto& [name, place] : owners)
    if (place != nullptr && !isBlank(name) && !hasGeneratedName(*place)) named_.insert(place);
}

std::span<const std::shared_ptr<Location>> Surroundings::placesAt(const Node& node) const {
  const auto found = places_.find(&node);
  if (found == places_.end()) return {};
  return found->second;
}

bool Surroundings::isEntranceOf(const Node& node, const Location& place) const {
  const auto places = placesAt(node);
  return std::any_of(places.begin(), places.end(),
                     [&](const auto& other) { return other.get() == &place; });
}

std::span<const std::shared_ptr<Location>> Surroundings::roomsAt(const Node& node) const {
  const auto found = rooms_.find(&node);
  if (found == rooms_.end()) return {};
  return found->second;
}

std::shared_ptr<Category> Surroundings::soleKind(const Location& place,
                                                 const Node& entrance) const {
  if (place.categories.empty() || !place.categories.front()) return nullptr;
  const auto& category = place.categories.front();
  if (isBlank(category->name.value_or("")) || category->_data["general"].bool_().value_or(false))
    return nullptr;
  const double x = entrance.x * metersPerUnit_;
  const double y = entrance.y * metersPerUnit_;
  if (!std::isfinite(x) || !std::isfinite(y)) return nullptr;
  const KindEntry begin{category.get(), entrance.map.get(), x - soleKindMeters, 0.0, nullptr};
  auto entry = std::lower_bound(kinds_.begin(), kinds_.end(), begin);
  for (; entry != kinds_.end() && entry->category == category.get() &&
         entry->map == entrance.map.get() && entry->x <= x + soleKindMeters;
       ++entry)
    if (entry->place != &place && std::hypot(entry->x - x, entry->y - y) <= soleKindMeters)
      return nullptr;
  return category;
}

}  // namespace orivanta::guidance
