// Lifts, escalators, stairs and ramps in three dimensions.
#pragma once

#include "Apps/DemoVenue/Model.hpp"
#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

/// Adds what a floor shows of the connectors that stop there.
void addConnectors(Model& model, const Plan& plan, const Floor& floor);

}  // namespace orivanta::demo
