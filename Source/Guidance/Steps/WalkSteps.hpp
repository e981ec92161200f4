// The instructions of one walk, from its first step to before the ride or the stop at its end.
#pragma once

#include <cstddef>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Steps/Landmarks.hpp"
#include "Source/Guidance/Steps/NearbyPlaces.hpp"
#include "Source/Guidance/Steps/Sections.hpp"
#include "Source/Guidance/Steps/Surroundings.hpp"
#include "Source/Guidance/Steps/WalkLine.hpp"
#include "Source/Guidance/Steps/WalkPlan.hpp"

namespace orivanta::guidance {

class WalkSteps {
 public:
  /// `landmarks` learns which places were mentioned. If it is canceled, the instructions mention
  /// fewer places.
  WalkSteps(const Itinerary& itinerary, const Section& section, const Surroundings& surroundings,
            Landmarks& landmarks, const foundation::CancellationToken& token);

  /// The instructions in order. Empty if there is nothing to tell: a short straight way from a
  /// ride to the end.
  std::vector<Step> steps;
  Side rideSide = Side::none;  ///< where the ride after the walk is
  double metersBefore = 0.0;   ///< the walk before the first instruction
  double secondsBefore = 0.0;  ///< the time before it

 private:
  void addFirst(const Section& section, const WalkPlan& plan);
  void addTurns(const std::vector<ToldTurn>& turns);
  void addArrival(const Section& section, const WalkPlan& plan);
  Side sideAfterRide(const Leg& ride, const WalkPlan& plan, const Surroundings& surroundings) const;
  void measure();
  void dropEmptyLeave();
  void addRooms(const Section& section, const Surroundings& surroundings,
                const foundation::CancellationToken& token);
  void mention(const NearbyPlaces& nearby, const WalkPlan& plan, const WalkEnds& ends,
               Landmarks& landmarks);
  void add(Step step, const ToldTurn* told, std::size_t first, std::size_t last,
           std::size_t anchor);
  std::size_t endOf(std::size_t index) const;

  WalkLine line_;
  std::vector<std::size_t> anchors_;  // by step, the point of the line where it applies
};

}  // namespace orivanta::guidance
