// Makes the instructions of an itinerary.
#pragma once

#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Steps/Surroundings.hpp"

namespace orivanta::guidance {

/// Returns the instructions of an itinerary in order: departing and arriving at each stop, turns
/// and rides. `surroundings` must be those of the venue of the itinerary. The sums of
/// `metersToNext` and `secondsToNext` are those of the itinerary. Empty if the itinerary is not
/// usable, or if it is canceled. An itinerary without visits begins and ends at unnamed stops.
/// Thread-safe.
std::vector<Step> stepsOf(const Itinerary& itinerary, const Surroundings& surroundings,
                          const foundation::CancellationToken& token = {});

}  // namespace orivanta::guidance
