// A skeleton that can be searched for ways.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "Apps/Import/Geometry/SegmentGrid.hpp"
#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Skeleton.hpp"

namespace orivanta::importer {

/// Belongs to `Ways`, which searches it.
struct WaysPart {
  using Index = std::uint32_t;
  static constexpr Index none = 0xffffffff;
  static constexpr double unknown = std::numeric_limits<double>::infinity();

  /// Refers to `given` unless there is an own skeleton.
  explicit WaysPart(const Skeleton* given, std::optional<Skeleton> own = {})
      : made(std::move(own)), skeleton(made ? *made : *given) {
    prepare();
  }

  const std::optional<Skeleton> made;
  const Skeleton& skeleton;
  std::vector<std::vector<Index>> neighbors;
  std::optional<SegmentGrid> points;
  // Of the current search; reset after each.
  std::vector<double> costs;
  std::vector<Index> before;
  std::vector<Index> touched;
  bool hasStarts = false;
  bool isCutOff = false;  // there are points farther away than the search went
  // What earlier searches have found out.
  std::vector<bool> isNoArrival;
  std::vector<bool> leadsNowhere;

  DraftNode nodeAt(Index point) const {
    return {skeleton.points[point], NodeKind::way, {}, {}, 0.0, 0.0, 0.0, {}};
  }

 private:
  void prepare() {
    neighbors = skeleton.neighbors();
    std::vector<Segment> places;
    places.reserve(skeleton.points.size());
    for (const Point point : skeleton.points) places.push_back({point, point});
    points.emplace(std::move(places), 0.0);
    costs.assign(skeleton.points.size(), unknown);
    before.assign(skeleton.points.size(), none);
    isNoArrival.assign(skeleton.points.size(), false);
    leadsNowhere.assign(skeleton.points.size(), false);
  }
};

}  // namespace orivanta::importer
