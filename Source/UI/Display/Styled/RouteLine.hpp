// The course of a route through the floors of a venue.
// Private header.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Ribbons.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// A point of a route on a floor.
struct RoutePoint {
  graphics::Vector3 position{};          ///< scene units
  std::shared_ptr<Map> floor = nullptr;  ///< never null

  friend bool operator==(const RoutePoint&, const RoutePoint&) = default;
};

/// Points and the length of the route up to each of them, in scene units; floor changes have no
/// length. Immutable, any thread.
class RouteLine {
 public:
  explicit RouteLine(std::vector<RoutePoint> points);

  std::size_t size() const { return points_.size(); }

  /// Returns the lines of a part of the route on a floor: from the point `first` to before `end`.
  /// Each has at least two points. Their `distance` is the length of the route before them.
  std::vector<scene::Ribbons::Line> linesOn(const Map& floor, std::size_t first,
                                            std::size_t end) const;

  /// Returns the length of the route up to the point on a floor that is nearest to a position, but
  /// at least `passed`. Of several points that are equally near, the first one counts.
  double lengthTo(const Map& floor, const graphics::Vector3& position, double passed) const;

 private:
  std::vector<RoutePoint> points_;
  std::vector<double> lengths_;  // up to each point
};

/// Returns the distance between arrows in meters, at a scale in points per meter: about 40 points.
/// It is a power of two, so that arrows stay where they are while the map zooms.
double arrowSpacing(double pointsPerMeter);

/// How a route is drawn at a scale.
struct RouteScale {
  double pointsPerMeter = 1;
  double unitsPerMeter = 1;  ///< scene units
};

/// Returns the look of a route: a line with a casing and arrows, thinner and without arrows below
/// 1.5 points per meter. `passed`: the length of the passed part. `arrowPhase`: the length up to
/// one of the arrows.
scene::RibbonLook routeLook(const MapTheme& theme, const graphics::Color& color,
                            const RouteScale& scale, double passed, double arrowPhase);

}  // namespace orivanta
