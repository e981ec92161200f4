// What the shapes of a floor's model are, and the colors that they have in a theme.
#pragma once

#include <vector>

#include "Platform/Graphics/Color.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Kinds/FillKind.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// What a shape is.
struct ShapeRole {
  enum class Surface {
    place,     ///< the floor and the walls of a place or a connector
    walkable,  ///< corridors and the like
    slab,      ///< the floor below everything
    backdrop,  ///< an opening to the floor below
    wall,      ///< walls that belong to no place, doors of elevators
    fixture    ///< columns and other obstacles
  };

  Surface surface = Surface::place;
  FillKind kind = FillKind::other;  ///< of a place, or of what a door belongs to

  friend bool operator==(const ShapeRole&, const ShapeRole&) = default;
};

/// Returns the roles of the children of the floor's model, in their order. Shapes of polygons have
/// the kind of their location or connector. Shapes without a place, and places of an unknown kind,
/// are walkable if they lie below the nodes of the floor. The floor must have a model. Main thread.
std::vector<ShapeRole> shapeRoles(const Map& map, const Venue& venue, const KindWords& words);

/// Returns the color of shapes with a role.
graphics::Color colorOf(const ShapeRole& role, const MapTheme& theme);

}  // namespace orivanta
