// What the labels of a floor are made of, copied from a venue so that another thread can use it.
// Private header.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"
#include "Source/UI/Display/Styled/ShapeRoles.hpp"

namespace orivanta {

/// A place or a connector on a floor.
struct PlaceRecord {
  std::shared_ptr<Location> place;  ///< only passed on; other threads must not read it
  PlaceKind kind = PlaceKind::other;
  std::string name;                        ///< see `labelName`
  bool isNameGenerated = false;            ///< see `hasGeneratedName`
  bool isClosed = false;                   ///< see `Closures`
  std::vector<std::string> shapes;         ///< names of its shapes on the floor
  std::optional<graphics::Vector3> entry;  ///< its first node on the floor, scene units
};

/// A shape of the floor on which a name can lie.
struct ShapeRecord {
  std::string name;
  std::shared_ptr<const scene::Geometry> geometry;         ///< never null
  ShapeRole::Surface surface = ShapeRole::Surface::place;  ///< place, walkable or backdrop
};

/// The places and shapes of a floor.
struct FloorRecords {
  std::vector<PlaceRecord> places;      ///< locations, then connectors, in the venue's order
  std::vector<ShapeRecord> shapes;      ///< in the model's order; empty without a model
  std::optional<double> unitsPerMeter;  ///< nothing if the venue does not state its scale
  std::string closedWord;               ///< follows the names of what is closed
};

/// Copies the records of a floor of a loaded venue. `words` determine the kinds. Main thread.
FloorRecords floorRecords(const Venue& venue, const Map& floor, const KindWords& words,
                          const guidance::Closures& closures = {});

}  // namespace orivanta
