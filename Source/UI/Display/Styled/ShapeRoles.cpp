#include "Source/UI/Display/Styled/ShapeRoles.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/Display/Styled/ConnectorShapes.hpp"
#include "Source/UI/Style/PlaceKind.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

using Surface = ShapeRole::Surface;

// Materials of these names belong to no polygon.
const std::unordered_map<std::string_view, ShapeRole> commonRoles{
    {"Ground", {Surface::slab, FillKind::other}},
    {"Opening", {Surface::backdrop, FillKind::other}},
    {"Walls", {Surface::wall, FillKind::other}},
    {"ElevatorDoors", {Surface::wall, FillKind::vertical}},
    {"Fixtures", {Surface::fixture, FillKind::other}},
    {"Columns", {Surface::fixture, FillKind::other}},
    {"Railing", {Surface::fixture, FillKind::other}},
    {"Soil", {Surface::fixture, FillKind::other}},
    {"Tables", {Surface::fixture, FillKind::other}},
    {"Green", {Surface::place, FillKind::green}},
    {"Lawn", {Surface::place, FillKind::green}},
    {"Leaves", {Surface::place, FillKind::green}},
};

class Roles {
 public:
  Roles(const Map& map, const Venue& venue, const KindWords& words)
      : venue_(venue), words_(words), connectors_(connectorShapes(venue)) {
    if (venue.nodes)
      for (const auto& node : *venue.nodes)
        if (node->map.get() == &map) nodeHeight_ = std::min(nodeHeight_.value_or(node->z), node->z);
    if (venue.locations)
      for (const auto& location : *venue.locations)
        if (location->name) places_.emplace(*location->name, location.get());
  }

  ShapeRole roleOf(const scene::Node& shape) const {
    const std::string name = shape.name().value_or("");
    if (const auto common = commonRoles.find(name); common != commonRoles.end())
      return common->second;
    if (connectors_.count(name) > 0) return {Surface::place, FillKind::vertical};
    if (const auto kind = kindOfPlace(name)) return {Surface::place, *kind};
    const FillKind kind = fillKindOf(words_.kindOf(name));
    if (!polygonNamed(name) && kind != FillKind::other) return {Surface::place, kind};
    const double top = shape.position().z + shape.boundingBox().max.z;
    const bool isBelowNodes = nodeHeight_ && top < *nodeHeight_;
    return {isBelowNodes ? Surface::walkable : Surface::place, FillKind::other};
  }

 private:
  const Polygon* polygonNamed(const std::string& name) const {
    if (!venue_.polygonDictionary) return nullptr;
    const auto entry = venue_.polygonDictionary->find(name);
    return entry == venue_.polygonDictionary->end() ? nullptr : entry->second.get();
  }

  // Nothing if the shape belongs to no place. Of several places, the first one of a known kind
  // decides.
  std::optional<FillKind> kindOfPlace(const std::string& name) const {
    std::optional<FillKind> kind;
    if (const Polygon* const polygon = polygonNamed(name)) {
      for (const auto& link : polygon->locations)
        if (const auto place = link.lock();
            place && kind.value_or(FillKind::other) == FillKind::other)
          kind = fillKindOf(words_.kindOf(*place));
    } else if (const auto place = places_.find(name); place != places_.end()) {
      kind = fillKindOf(words_.kindOf(*place->second));
    }
    return kind;
  }

  const Venue& venue_;
  const KindWords& words_;
  ConnectorShapes connectors_;
  std::unordered_map<std::string_view, const Location*> places_;  // by name
  std::optional<double> nodeHeight_;                              // of the lowest node of the floor
};

}  // namespace

std::vector<ShapeRole> shapeRoles(const Map& map, const Venue& venue, const KindWords& words) {
  const graphics::Transaction transaction;
  const Roles roles(map, venue, words);
  std::vector<ShapeRole> found;
  for (const auto& shape : map.mapObject->children(transaction))
    found.push_back(roles.roleOf(*shape));
  return found;
}

graphics::Color colorOf(const ShapeRole& role, const MapTheme& theme) {
  switch (role.surface) {
    case Surface::place:
      return theme.fill(role.kind);
    case Surface::walkable:
      return theme.colors.walkable;
    case Surface::slab:
      return theme.colors.slab;
    case Surface::backdrop:
      return theme.colors.backdrop;
    case Surface::wall:
      return theme.outline(role.kind == FillKind::other ? theme.colors.slab
                                                        : theme.fill(role.kind));
    case Surface::fixture:
      break;
  }
  return theme.walkableOutline();
}

}  // namespace orivanta
