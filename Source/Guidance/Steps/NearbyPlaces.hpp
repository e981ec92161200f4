// The places along a walk, by the entrances that can be seen from it.
#pragma once

#include <memory>
#include <span>
#include <unordered_set>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Steps/OnFoot.hpp"
#include "Source/Guidance/Steps/PlanePoint.hpp"
#include "Source/Guidance/Steps/Surroundings.hpp"
#include "Source/Guidance/Steps/WalkLine.hpp"

namespace orivanta::guidance {

/// An entrance near a walk.
struct NearbyPlace {
  std::shared_ptr<Location> place;     ///< never null
  std::shared_ptr<Category> category;  ///< if not null, the place is told by this category
  PlanePoint entrance;                 ///< in meters
  double along = 0.0;                  ///< the position on the line next to it
  double beside = 0.0;                 ///< the distance from the line, left positive
  double onFoot = 0.0;                 ///< the walk from the line, in meters
};

/// Only places that can be told are listed: those with a name of their own, and those that are the
/// only one of their category near. Rooms that the walk enters are not listed.
class NearbyPlaces {
 public:
  /// The longest walk from the line to an entrance, in meters.
  static constexpr double farthestOnFoot = 12.0;

  /// Lists fewer places if it is canceled.
  NearbyPlaces(const WalkLine& line, const Surroundings& surroundings,
               const foundation::CancellationToken& token = {});

  /// Returns the entrances whose position on the line is in this range, by position.
  std::span<const NearbyPlace> between(double begin, double end) const;

 private:
  void add(const ReachedNode& reached, const WalkLine& line, const Surroundings& surroundings,
           const foundation::CancellationToken& token);

  std::vector<NearbyPlace> places_;  // by position on the line
  std::unordered_set<const Location*> entered_;
};

}  // namespace orivanta::guidance
