// The room for a name around the anchor of an area.
#pragma once

#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/UI/Labels/LabelAnchor.hpp"
#include "Source/UI/Labels/LabelArea.hpp"

namespace orivanta {

/// Answers how wide a text can be that is centered at the anchor of an area. It is computed once
/// for each area and does not change. Any thread.
class ORIVANTA_API LabelRoom {
 public:
  /// Keeps the 256 edges of the area, and of those on it, that are nearest to the anchor.
  LabelRoom(const LabelArea& area, std::span<const LabelArea> areasOnIt, const LabelAnchor& anchor);

  /// Returns the width of the widest rectangle of this height that is centered at the anchor and
  /// contains no edge, in scene units. `direction` is the unit vector along the text. Returns 0 if
  /// an edge lies above or below the anchor within the height.
  double freeWidth(double height, graphics::Point direction) const;

 private:
  std::vector<LabelEdge> edges_;  // relative to the anchor
};

}  // namespace orivanta
