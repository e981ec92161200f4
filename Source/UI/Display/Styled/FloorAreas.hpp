// The areas of the shapes on a floor, and which of them lie on others.
// Private header.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "Source/UI/Display/Styled/FloorRecords.hpp"
#include "Source/UI/Labels/LabelAnchor.hpp"
#include "Source/UI/Labels/LabelArea.hpp"
#include "Source/UI/Labels/LabelRoom.hpp"

namespace orivanta {

/// The area of a shape.
struct FloorArea {
  LabelArea area;                     ///< may be empty
  graphics::Rect bounds;              ///< of the area
  std::optional<LabelAnchor> middle;  ///< of the area, without regard to what lies on it
  ShapeRole::Surface surface = ShapeRole::Surface::place;
};

/// Where the name of a place is centered in its area, and the room around that point.
struct AreaName {
  LabelAnchor anchor;
  std::shared_ptr<const LabelRoom> room;  ///< null until it was asked for
};

/// The areas of a floor. They depend on its shapes only. Any thread.
class FloorAreas {
 public:
  explicit FloorAreas(const FloorRecords& records);

  /// Returns the areas in the order of the shapes.
  const std::vector<FloorArea>& all() const { return areas_; }

  /// Returns the index of the largest area of shapes with these names, or nothing if all are empty.
  std::optional<std::size_t> largest(const std::vector<std::string>& shapes) const;

  /// Returns where a name is centered in an area that has a `middle`, with regard to what lies on
  /// the area. Computes it in the first call for the area.
  AreaName nameIn(std::size_t index) const;

  /// Returns the distance of the points of `namesIn`: at least `least`, more in a large area.
  double pitchIn(std::size_t index, double least) const;

  /// Returns points in a large area at which its name can be as well: the middles of the squares of
  /// a grid that are in the area and not below others. None if the area is hardly larger than a
  /// square.
  std::vector<AreaName> namesIn(std::size_t index, double pitch) const;

  /// Returns the indices of the areas of shapes with these names.
  std::vector<std::size_t> indicesOf(const std::vector<std::string>& shapes) const;

 private:
  std::vector<LabelArea> areasOn(std::size_t index) const;

  std::vector<FloorArea> areas_;
  std::unordered_map<std::string, std::size_t> indices_;  // by name
  mutable std::mutex mutex_;                              // for the following member
  mutable std::vector<AreaName> names_;
};

}  // namespace orivanta
