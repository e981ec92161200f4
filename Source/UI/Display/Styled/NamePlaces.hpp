// Where the names of large areas are shown.
// Private header.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Source/UI/Display/Styled/FloorLabels.hpp"
#include "Source/UI/Labels/PlaceLabel.hpp"

namespace orivanta {

/// Chooses one of the labels of each large area in each frame. A near view may show a part of an
/// area in which its anchor does not lie.
class NamePlaces {
 public:
  /// Forgets the choices. Call it for new labels.
  void reset();

  /// Hides all labels of each large area except one, by setting their scales in `places` to 0. This
  /// is the main label as long as its name is free, and otherwise the free one that is nearest to
  /// the center of the view. The name is free if it is in the view and outside of the panels. A
  /// choice is kept as long as it is free, except that the main label is preferred. All are hidden
  /// if the scale of the main label is 0.
  void choose(const FloorLabels& labels, std::span<ProjectedPlace> places, graphics::Size view,
              std::span<const graphics::Rect> panels);

 private:
  std::vector<std::size_t> chosen_;  // the labels, in the order of `FloorLabels::large`
};

}  // namespace orivanta
