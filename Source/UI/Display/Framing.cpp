#include "Source/UI/Display/Framing.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Source/Guidance/Scale.hpp"
#include "Source/UI/Display/Turned.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

constexpr double leastSide = 80;       // points; minimum size of the uncovered part
constexpr double leastFarSlope = 0.2;  // keeps far points away from the horizon
constexpr double leastLeverage =
    0.05;                              // of the distance on the depth; below it insets are too much
constexpr double leastNearness = 0.5;  // of the nearest point, of the least distance

constexpr double routeMargin = 0.3;
constexpr double leastRouteExtent = 120;  // scene units; a route is drawn ten units wide
constexpr double mostRouteExtent = 600;
constexpr double leastRouteMeters = 8;
constexpr double leastStyledRouteMeters = 25;  // rooms have names and neighbors then
constexpr double styledRouteMargin = 0.2;
constexpr double markMargin = 40;  // points

// The allowed slopes of points in one direction of the view.
struct Range {
  double least;
  double most;

  double length() const { return most - least; }
};

// Returns the slopes of an uncovered part of the view with this length and this start, relative to
// the center.
Range rangeOf(double start, double length, double slope, double margin) {
  const double half = std::max(leastSide, length) / 2;
  const double middle = start + length / 2;
  return {(middle - half / (1 + margin)) * slope, (middle + half / (1 + margin)) * slope};
}

// The bounds on the camera's center in one direction. A point at `place` across the view and at the
// depth e + `deeper` has the slope (place - center) / (e + deeper), which must be in the range.
// This gives two bounds on the center that are linear in e.
class Bounds {
 public:
  explicit Bounds(Range range) : range_(range) {}

  void add(double place, double deeper) {
    low_ = std::max(low_, place - range_.most * deeper);
    high_ = std::min(high_, place - range_.least * deeper);
  }

  double leastDepth() const { return (low_ - high_) / range_.length(); }

  // The center between the bounds is offset + slope * e.
  double offset() const { return (low_ + high_) / 2; }
  double slope() const { return -(range_.most + range_.least) / 2; }

 private:
  Range range_;
  double low_ = std::numeric_limits<double>::lowest();
  double high_ = std::numeric_limits<double>::max();
};

}  // namespace

Surroundings aroundRoute(const Venue& venue) {
  const double unitsPerMeter = std::max(0.0, venue._data["unitsPerMetre"].doubleValue());
  return {routeMargin,
          std::clamp(leastRouteMeters * unitsPerMeter, leastRouteExtent, mostRouteExtent)};
}

Surroundings aroundRoute(const MapView& view) {
  Surroundings around = aroundRoute(*view.venue);
  if (view.style()) {
    around.margin = styledRouteMargin;
    around.points = markMargin;
    if (const auto unitsPerMeter = guidance::unitsPerMeterOf(*view.venue))
      around.leastExtent = std::max(around.leastExtent, leastStyledRouteMeters * *unitsPerMeter);
  }
  return around;
}

std::array<graphics::Vector3, 8> cornersOf(const graphics::Box& box) {
  std::array<graphics::Vector3, 8> corners;
  for (std::size_t i = 0; i < corners.size(); ++i)
    corners[i] = {(i & 1U) == 0 ? box.min.x : box.max.x, (i & 2U) == 0 ? box.min.y : box.max.y,
                  (i & 4U) == 0 ? box.min.z : box.max.z};
  return corners;
}

CameraPose framing(std::span<const graphics::Vector3> points, CameraPose pose, const Lens& lens,
                   const Insets& covered, const Surroundings& surroundings) {
  if (points.empty()) return pose;
  const double border = surroundings.points;
  const Insets insets{covered.left + border, covered.top + border, covered.right + border,
                      covered.bottom + border};
  const graphics::Size view = lens.size;
  const double slope = lens.slopePerPoint();
  const double sine = std::sin(pose.tilt);
  const double cosine = std::cos(pose.tilt);
  const Range across = rangeOf(insets.left - view.width / 2,
                               view.width - insets.left - insets.right, slope, surroundings.margin);
  Range up = rangeOf(insets.bottom - view.height / 2, view.height - insets.top - insets.bottom,
                     slope, surroundings.margin);
  if (sine > 0)
    up.most = std::max(std::min(up.most, (cosine - leastFarSlope) / sine), up.least + slope);

  Bounds horizontal(across);
  Bounds vertical(up);
  double nearest = std::numeric_limits<double>::max();
  for (const graphics::Vector3& point : points) {
    const graphics::Point seen = turned({point.x, point.y}, -pose.turn);
    const double z = point.z - pose.z;
    const double deeper = seen.y * sine - z * cosine;
    horizontal.add(seen.x, deeper);
    vertical.add(seen.y * cosine + z * sine, deeper);
    nearest = std::min(nearest, deeper);
  }
  // The distance is the depth of the center: e + center.y * sine.
  const double leverage = std::max(leastLeverage, 1 + vertical.slope() * sine / cosine);
  const double shift = vertical.offset() * sine / cosine;
  const double least = surroundings.leastExtent / std::min(across.length(), up.length());
  const double depth = std::max({horizontal.leastDepth(), vertical.leastDepth(),
                                 (least - shift) / leverage, leastNearness * least - nearest});
  const graphics::Point center{horizontal.offset() + horizontal.slope() * depth,
                               (vertical.offset() + vertical.slope() * depth) / cosine};
  const graphics::Point place = turned(center, pose.turn);
  pose.x = place.x;
  pose.y = place.y;
  pose.distance = depth + center.y * sine;
  return pose;
}

}  // namespace orivanta
