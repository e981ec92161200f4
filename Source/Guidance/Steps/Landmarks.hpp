// Chooses the places that instructions mention.
#pragma once

#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Steps/Bends.hpp"
#include "Source/Guidance/Steps/NearbyPlaces.hpp"
#include "Source/Guidance/Steps/WalkLine.hpp"

namespace orivanta::guidance {

/// Mentions each place once per itinerary, and never as a landmark where the itinerary departs or
/// arrives.
class Landmarks {
 public:
  explicit Landmarks(const Itinerary& itinerary);

  /// Returns the place at which to turn. An entrance counts that is at most 9 m away, and 12 m on
  /// foot. One on the side of the turn is before it ("after the place") or behind it ("before the
  /// place"); one ahead, or at the turn itself, is at it.
  std::optional<Landmark> at(const Turn& turn, const WalkLine& line, const NearbyPlaces& nearby);

  /// Returns the places that the walk between two positions on the line passes at 6 m or less: one
  /// if it is longer than 12 m, two if it is longer than 70 m.
  std::vector<Passed> passed(double begin, double end, const NearbyPlaces& nearby);

  /// Returns the place opposite to the one at the end of a walk. `side` is that of the end.
  std::shared_ptr<Location> opposite(double end, Side side, const NearbyPlaces& nearby);

 private:
  const NearbyPlace* passedNext(double target, double begin, double end,
                                const NearbyPlaces& nearby) const;

  std::unordered_set<const Location*> used_;
};

}  // namespace orivanta::guidance
