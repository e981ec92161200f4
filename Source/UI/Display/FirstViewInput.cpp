#include "Source/UI/Display/FirstViewInput.hpp"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "Platform/Scene/Node.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/Display/Styled/ShapeAreas.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

struct Shape {
  graphics::Rect bounds;
  double area = 0;
};

// The shapes of polygons, by their names.
using Shapes = std::unordered_map<std::string, Shape>;

Shapes shapesOf(const Map& map, const Venue& venue) {
  Shapes shapes;
  if (!map.mapObject || !venue.polygonDictionary) return shapes;
  for (const auto& child : map.mapObject->children()) {
    const std::string name = child->name().value_or("");
    const auto geometry = child->geometry();
    if (!geometry || venue.polygonDictionary->find(name) == venue.polygonDictionary->end())
      continue;
    const LabelArea area = areaOf(*geometry);
    if (!area.edges.empty()) shapes[name] = {area.bounds(), area.size};
  }
  return shapes;
}

void extend(graphics::Rect& rect, const graphics::Rect& other, bool isFirst) {
  if (isFirst) {
    rect = other;
    return;
  }
  const graphics::Point least{std::min(rect.minX(), other.minX()),
                              std::min(rect.minY(), other.minY())};
  rect = {least,
          {std::max(rect.maxX(), other.maxX()) - least.x,
           std::max(rect.maxY(), other.maxY()) - least.y}};
}

class Reading {
 public:
  Reading(const Venue& venue, const RoleOfPlace& roleOf) : venue_(venue), roleOf_(roleOf) {}

  FirstViewInput run() {
    input_.unitsPerMeter = guidance::unitsPerMeterOf(venue_);
    if (!venue_.maps) return input_;
    for (const auto& map : *venue_.maps) addFloor(*map);
    if (venue_.locations)
      for (const auto& location : *venue_.locations) addLocation(*location);
    if (venue_.vortices)
      for (const auto& vortex : *venue_.vortices)
        for (const auto& map : vortex->maps)
          if (const auto floor = indexOf(*map)) ++input_.floors[*floor].connectors;
    return input_;
  }

 private:
  void addFloor(const Map& map) {
    indices_[&map] = input_.floors.size();
    input_.floors.push_back({map.elevation, 0, 0, {}});
    shapes_.push_back(shapesOf(map, venue_));
    hasExtent_.push_back(false);
  }

  void addLocation(const Location& location) {
    const FirstViewRole role = roleOf_ ? roleOf_(location) : FirstViewRole::place;
    for (const auto& map : floorsOf(location)) {
      const auto floor = indexOf(*map);
      if (!floor) continue;
      if (role == FirstViewRole::entrance) ++input_.floors[*floor].entrances;
      addPlace(location, *map, *floor, role);
    }
  }

  void addPlace(const Location& location, const Map& map, std::size_t floor, FirstViewRole role) {
    FirstViewPlace place;
    place.floor = floor;
    bool hasArea = false;
    double largest = 0;
    bool isPlaced = false;
    for (const auto& polygon : location.polygons) {
      if (polygon->map.get() != &map) continue;
      hasArea = true;
      const auto shape = shapes_[floor].find(polygon->id.value_or(""));
      if (shape == shapes_[floor].end()) continue;
      const auto& [bounds, area] = shape->second;
      addExtent(floor, bounds);
      place.area += area;
      if (area > largest) place.position = {bounds.midX(), bounds.midY()};
      largest = std::max(largest, area);
      isPlaced = isPlaced || area > 0;
    }
    if (!isPlaced && !placeAtNodes(location, map, place.position)) return;
    addExtent(floor, {place.position, {0, 0}});
    const bool isGenerated = hasGeneratedName(location);
    place.weight = firstViewWeight(isGenerated, role == FirstViewRole::background, hasArea);
    input_.places.push_back(place);
  }

  static bool placeAtNodes(const Location& location, const Map& map, graphics::Point& position) {
    double count = 0;
    graphics::Point sum;
    for (const auto& node : location.nodes)
      if (node->map.get() == &map) {
        sum = {sum.x + node->x, sum.y + node->y};
        ++count;
      }
    if (count > 0) position = {sum.x / count, sum.y / count};
    return count > 0;
  }

  void addExtent(std::size_t floor, const graphics::Rect& rect) {
    extend(input_.floors[floor].areas, rect, !hasExtent_[floor]);
    hasExtent_[floor] = true;
  }

  std::optional<std::size_t> indexOf(const Map& map) const {
    const auto found = indices_.find(&map);
    if (found == indices_.end()) return std::nullopt;
    return found->second;
  }

  const Venue& venue_;
  const RoleOfPlace& roleOf_;
  FirstViewInput input_;
  std::unordered_map<const Map*, std::size_t> indices_;
  std::vector<Shapes> shapes_;  // of each floor
  std::vector<bool> hasExtent_;
};

}  // namespace

FirstViewInput firstViewInput(const Venue& venue, const RoleOfPlace& roleOf) {
  return Reading(venue, roleOf).run();
}

}  // namespace orivanta
