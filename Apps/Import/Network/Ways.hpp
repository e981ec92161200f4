// Finds ways round corners along the skeleton of an area.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Skeleton.hpp"

namespace orivanta::importer {

/// Keeps references to its arguments. Not to be used from several threads at once.
class Ways {
 public:
  Ways(const Skeleton& skeleton, const Space& space);

  /// Makes the skeleton of the shape when it is needed first, which takes long for a large shape.
  Ways(const Shape& shape, double leastClearance, const Space& space);

  const Skeleton& skeleton();

  /// The bends of a short way, without its ends. Nothing if there is no way of at most `longest`
  /// meters.
  std::optional<std::vector<Point>> between(const DraftNode& from, const DraftNode& to,
                                            double longest);

  /// The result of `arrive` for the first point of the skeleton for which it returns one, in the
  /// order of the length of the way, and the bends of the way to it.
  struct Arrival {
    DraftNode end;
    std::vector<Point> bends;
  };
  std::optional<Arrival> nearest(
      const DraftNode& from,
      const std::function<std::optional<DraftNode>(const DraftNode& point)>& arrive);

 private:
  using Index = std::uint32_t;
  struct Start {
    Index point;
    double distance;
  };
  void prepare();
  std::vector<Start> startsFor(const DraftNode& node);
  std::optional<Index> search(const DraftNode& from, double longest,
                              const std::function<bool(Index)>& isGoal);
  std::vector<Point> straightened(const DraftNode& from, Index last, const DraftNode& to) const;
  void tighten(std::vector<DraftNode>& way) const;
  DraftNode nodeAt(Index point) const;

  const Shape* shape_ = nullptr;
  double leastClearance_ = 0.0;
  const Space& space_;
  std::optional<Skeleton> made_;
  const Skeleton* skeleton_ = nullptr;  // null until it is made
  std::vector<std::vector<Index>> neighbors_;
  std::optional<SegmentGrid> points_;  // nothing until the first search
  // Of the current search; reset after each.
  std::vector<double> costs_;
  std::vector<Index> before_;
  std::vector<Index> touched_;
};

}  // namespace orivanta::importer
