#include "Source/UI/Display/Styled/ShapeRoles.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Platform/Scene/Node.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/Display/Styled/ConnectorShapes.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

using Surface = ShapeRole::Surface;

struct NamedRole {
  std::string_view name;
  ShapeRole role;
};

// Materials of these names belong to no polygon.
constexpr std::array<NamedRole, 13> commonRoles{{
    {"Ground", {Surface::slab}},
    {"Opening", {Surface::backdrop}},
    {"Walls", {Surface::wall}},
    {"ElevatorDoors", {Surface::wall, FillKind::vertical}},
    {"Fixtures", {Surface::fixture}},
    {"Columns", {Surface::fixture}},
    {"Railing", {Surface::fixture}},
    {"Shopfront", {Surface::fixture}},
    {"Soil", {Surface::fixture}},
    {"Tables", {Surface::fixture}},
    {"Green", {Surface::place, FillKind::green}},
    {"Lawn", {Surface::place, FillKind::green}},
    {"Leaves", {Surface::place, FillKind::green}},
}};

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
    const auto common = std::find_if(commonRoles.begin(), commonRoles.end(),
                                     [&](const NamedRole& each) { return each.name == name; });
    if (common != commonRoles.end()) return common->role;
    if (connectors_.count(name) > 0) return {Surface::place, FillKind::vertical};
    const FillKind kind = kindOf(name);
    const double top = shape.position().z + shape.boundingBox().max.z;
    const bool isBelowNodes = nodeHeight_ && top < *nodeHeight_;
    return {kind == FillKind::other && isBelowNodes ? Surface::walkable : Surface::place, kind};
  }

 private:
  FillKind kindOf(const std::string& name) const {
    if (venue_.polygonDictionary)
      if (const auto polygon = venue_.polygonDictionary->find(name);
          polygon != venue_.polygonDictionary->end())
        return kindOf(*polygon->second);
    const auto place = places_.find(name);
    return fillKindOf(place == places_.end() ? words_.kindOf(name) : words_.kindOf(*place->second));
  }

  // Of several places, the first one of a known kind decides.
  FillKind kindOf(const Polygon& polygon) const {
    FillKind kind = FillKind::other;
    for (const auto& link : polygon.locations)
      if (const auto place = link.lock(); place && kind == FillKind::other)
        kind = fillKindOf(words_.kindOf(*place));
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
  const Roles roles(map, venue, words);
  std::vector<ShapeRole> found;
  for (const auto& shape : map.mapObject->children()) found.push_back(roles.roleOf(*shape));
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
