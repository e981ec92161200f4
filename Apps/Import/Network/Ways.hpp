// Finds ways round corners along the skeleton of an area.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Skeleton.hpp"

namespace orivanta::importer {

struct WaysPart;

/// Keeps references to its arguments. Not to be used from several threads at once.
class Ways {
 public:
  Ways(const Skeleton& skeleton, const Space& space);

  /// Makes the skeleton of the shape only as far as it is needed, because it takes long for a large
  /// shape.
  Ways(const Shape& shape, double leastClearance, const Space& space);
  ~Ways();

  /// The skeleton of the whole shape.
  const Skeleton& skeleton();

  /// The bends of a short way, without its ends. Nothing if there is no way of at most `longest`
  /// meters.
  std::optional<std::vector<Point>> between(const DraftNode& from, const DraftNode& to,
                                            double longest);

  /// The result of `arrive` for the first point of the skeleton for which it returns one, in the
  /// order of the length of the way, and the bends of the way to it. `arrive` must return the same
  /// for a point in all calls, because it is not called again where it has returned nothing.
  struct Arrival {
    DraftNode end;
    std::vector<Point> bends;
  };
  using Arrive = std::function<std::optional<DraftNode>(const DraftNode& point)>;
  std::optional<Arrival> nearest(const DraftNode& from, const Arrive& arrive);

 private:
  using Index = std::uint32_t;
  struct Start {
    Index point;
    double distance;
  };
  WaysPart& whole();
  std::vector<std::size_t> polygonsNear(Point point) const;
  WaysPart& partOf(const std::vector<std::size_t>& polygons);
  WaysPart& around(Point point, double size);
  std::vector<Start> startsFor(const WaysPart& part, const DraftNode& node) const;
  std::optional<Index> search(WaysPart& part, const std::vector<Start>& starts, double longest,
                              const std::function<bool(Index)>& isGoal) const;
  std::optional<Arrival> nearestIn(WaysPart& part, const DraftNode& from, double longest,
                                   const Arrive& arrive) const;
  std::vector<Point> straightened(const WaysPart& part, const DraftNode& from, Index last,
                                  const DraftNode& to) const;
  void tighten(std::vector<DraftNode>& way) const;

  const Shape* shape_ = nullptr;
  double leastClearance_ = 0.0;
  const Skeleton* skeleton_ = nullptr;  // of the whole shape; null until it is made
  const Space& space_;
  std::optional<Skeleton> made_;
  std::unique_ptr<WaysPart> whole_;
  std::vector<package::Box> boxes_;  // of the polygons
  std::map<std::vector<std::size_t>, std::unique_ptr<WaysPart>> parts_;
  std::map<std::tuple<double, long, long>, std::unique_ptr<WaysPart>>
      squares_;  // by size and position
};

}  // namespace orivanta::importer
