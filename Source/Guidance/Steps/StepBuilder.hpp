// Makes the instructions of an itinerary.
#pragma once

#include <vector>

#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Steps/Surroundings.hpp"

namespace orivanta::guidance {

/// Provisional: returns the departure and the arrival only.
std::vector<Step> stepsOf(const Itinerary& itinerary, const Surroundings& surroundings);

}  // namespace orivanta::guidance
