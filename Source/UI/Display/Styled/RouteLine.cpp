#include "Source/UI/Display/Styled/RouteLine.hpp"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <limits>
#include <utility>

#include "Source/Map.hpp"

namespace orivanta {

using graphics::Vector3;

namespace {

constexpr double spacingOfArrows = 40;  // points
constexpr double leastForArrows = 1.5;  // points per meter
constexpr double thinShare = 5.0 / 6;   // of the width
constexpr double sameDistance = 1e-3;   // scene units

}  // namespace

RouteLine::RouteLine(std::vector<RoutePoint> points) : points_(std::move(points)) {
  lengths_.reserve(points_.size());
  for (std::size_t i = 0; i < points_.size(); ++i) {
    const bool continues = i > 0 && points_[i - 1].floor == points_[i].floor;
    const double step =
        continues ? glm::length(points_[i].position - points_[i - 1].position) : 0.0F;
    lengths_.push_back((i > 0 ? lengths_.back() : 0) + step);
  }
}

std::vector<scene::Ribbons::Line> RouteLine::linesOn(const Map& floor, std::size_t first,
                                                     std::size_t end) const {
  std::vector<scene::Ribbons::Line> lines;
  for (std::size_t i = first; i + 1 < end; ++i) {
    if (points_[i].floor.get() != &floor || points_[i + 1].floor.get() != &floor) continue;
    if (i == first || points_[i - 1].floor.get() != &floor) {
      lines.push_back({.points = {points_[i].position},
                       .hasRoundEnds = true,
                       .distance = static_cast<float>(lengths_[i])});
    }
    lines.back().points.push_back(points_[i + 1].position);
  }
  return lines;
}

double RouteLine::lengthTo(const Map& floor, const Vector3& position, double passed) const {
  double nearest = std::numeric_limits<double>::max();
  double length = passed;
  for (std::size_t i = 0; i + 1 < points_.size(); ++i) {
    const bool isHere = points_[i].floor.get() == &floor && points_[i + 1].floor.get() == &floor;
    const double whole = lengths_[i + 1] - lengths_[i];
    if (!isHere || !(whole > 0) || lengths_[i + 1] < passed) continue;
    const Vector3 from = points_[i].position;
    const Vector3 way = points_[i + 1].position - from;
    const double share =
        std::clamp<double>(glm::dot(position - from, way) / glm::dot(way, way),
                           std::clamp((passed - lengths_[i]) / whole, 0.0, 1.0), 1.0);
    const double away = glm::length(position - (from + static_cast<float>(share) * way));
    if (away + sameDistance >= nearest) continue;
    nearest = away;
    length = lengths_[i] + share * whole;
  }
  return length;
}

double arrowSpacing(double pointsPerMeter) {
  return std::exp2(std::round(std::log2(spacingOfArrows / pointsPerMeter)));
}

scene::RibbonLook routeLook(const MapTheme& theme, const graphics::Color& color,
                            const RouteScale& scale, double passed, double arrowPhase) {
  const bool isFar = scale.pointsPerMeter < leastForArrows;
  scene::RouteRibbon route;
  route.casing = theme.colors.casing;
  route.passed = theme.colors.passed;
  route.casingWidth = static_cast<float>(theme.sizes.casing);
  if (passed > 0) route.passedTo = static_cast<float>(passed);
  if (!isFar) {
    const double spacing = arrowSpacing(scale.pointsPerMeter) * scale.unitsPerMeter;
    route.arrowSpacing = static_cast<float>(spacing);
    route.arrowPhase = static_cast<float>(std::fmod(arrowPhase, spacing));
  }
  const double width = theme.sizes.route * (isFar ? thinShare : 1);
  return {{{color, static_cast<float>(width)}}, route};
}

}  // namespace orivanta
