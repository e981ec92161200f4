// Finds ways round corners along the skeleton of an area.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Skeleton.hpp"

namespace orivanta::importer {

/// Keeps references to both arguments. Not to be used from several threads at once.
class Ways {
 public:
  Ways(const Skeleton& skeleton, const Space& space);

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
  std::vector<Start> startsFor(const DraftNode& node) const;
  std::optional<Index> search(const DraftNode& from, double longest,
                              const std::function<bool(Index)>& isGoal);
  std::vector<Point> straightened(const DraftNode& from, Index last, const DraftNode& to) const;
  void tighten(std::vector<DraftNode>& way) const;
  DraftNode nodeAt(Index point) const;

  const Skeleton& skeleton_;
  const Space& space_;
  std::vector<std::vector<Index>> neighbors_;
  SegmentGrid points_;
  // Of the current search; reset after each.
  std::vector<double> costs_;
  std::vector<Index> before_;
  std::vector<Index> touched_;
};

}  // namespace orivanta::importer
