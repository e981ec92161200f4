// What a styled map shows of a route.
// Private header.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Graphics/Color.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/NodeList.hpp"
#include "Source/UI/Display/Styled/RouteLine.hpp"

namespace orivanta {

/// A mark on a floor.
struct RouteMark {
  /// The kinds of marks, by ascending importance.
  enum class Form {
    floorChange,  ///< the icon of a connector and, before the ride, the floor to which it leads
    start,        ///< a dot
    stop,         ///< a pin with a number
    end           ///< a pin
  };

  Form form = Form::start;
  RoutePoint at;
  std::string text{};                         ///< beside the symbol; may be empty
  std::string number{};                       ///< of a stop
  std::shared_ptr<Location> place = nullptr;  ///< the place or the connector; may be null
  PlaceKind kind = PlaceKind::other;          ///< of a connector
  std::shared_ptr<Map> leadsTo = nullptr;     ///< where a floor change leads; otherwise null

  friend bool operator==(const RouteMark&, const RouteMark&) = default;
};

/// A part of a route with its marks.
struct RouteContents {
  std::shared_ptr<const RouteLine> line;   ///< of the whole route; never null
  std::size_t first = 0;                   ///< the first point that is shown
  std::size_t end = 0;                     ///< after the last point that is shown
  std::optional<graphics::Color> color{};  ///< nothing for that of the theme
  std::vector<RouteMark> marks{};          ///< on all floors
  double passed = 0;                       ///< the length that is passed, see `RouteLine`
};

/// Returns the points of a path.
std::vector<RoutePoint> routePoints(const NodeList& path);

/// Returns the marks of the floor changes of a path: one where each begins, unless its node is
/// outside of the part from `first` to before `end`, and one where it ends. `venue` may be null.
/// Main thread.
std::vector<RouteMark> floorChangeMarks(const NodeList& path, std::size_t first, std::size_t end,
                                        const Venue* venue, const KindWords& words);

}  // namespace orivanta
