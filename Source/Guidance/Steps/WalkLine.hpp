// The line of a walk: one or more consecutive walking legs of an itinerary.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Steps/PlanePoint.hpp"

namespace orivanta::guidance {

/// The points of a walk in meters. Refers to the itinerary, which must exist as long.
class WalkLine {
 public:
  /// Reads the legs from `firstLeg` to before `endLeg`. A node without a finite position gets that
  /// of the node before it.
  WalkLine(const Itinerary& itinerary, std::size_t firstLeg, std::size_t endLeg,
           double metersPerUnit);

  std::size_t size() const { return points_.size(); }
  bool empty() const { return points_.empty(); }
  const std::vector<PlanePoint>& points() const { return points_; }
  PlanePoint point(std::size_t index) const { return points_[index]; }
  const std::shared_ptr<Node>& node(std::size_t index) const;
  std::size_t leg(std::size_t index) const { return places_[index].leg; }
  std::size_t indexInLeg(std::size_t index) const { return places_[index].index; }

  /// Returns the length of the line from its start to a point, in meters, measured in the plane.
  double along(std::size_t index) const { return along_[index]; }

  /// Returns the total of `Leg::meters` and `Leg::seconds` up to a point.
  double meters(std::size_t index) const { return meters_[index]; }
  double seconds(std::size_t index) const { return seconds_[index]; }

  /// Moves the points between two others to the straight line between these. Call `measure` then.
  void straighten(std::size_t first, std::size_t last);

  /// Computes the lengths along the line again.
  void measure();

  /// Returns the point at a distance from the start, which is limited to the line.
  PlanePoint at(double distance) const;

 private:
  struct Place {
    std::size_t leg = 0;
    std::size_t index = 0;  // into the leg's nodes
  };

  void append(std::size_t leg, std::size_t index, double metersPerUnit);
  void spread(std::size_t begin, const Leg& leg);

  const Itinerary& itinerary_;
  std::vector<PlanePoint> points_;
  std::vector<Place> places_;
  std::vector<double> along_;
  std::vector<double> meters_;
  std::vector<double> seconds_;
};

}  // namespace orivanta::guidance
