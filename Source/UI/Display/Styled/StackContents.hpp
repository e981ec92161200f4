// What is drawn over stacked floors.
// Private header.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/RouteContents.hpp"
#include "Source/UI/Display/Styled/StackFloors.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// The floors of a stack and what is marked on them.
struct StackContents {
  StackedFloors stack;
  graphics::Box box;  ///< contains all floors, if they are not stacked
  std::shared_ptr<Map> shown;
  std::vector<RouteContents> routes;
  std::optional<RouteMark> selected;      ///< the mark of the selected place
  std::shared_ptr<const MapTheme> theme;  ///< never null

  /// Returns the height of a floor, or nothing if it is not stacked.
  std::optional<double> offsetOf(const Map& floor) const;
};

}  // namespace orivanta
