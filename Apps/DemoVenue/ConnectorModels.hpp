// Models of elevators, escalators, stairs and ramps.
#pragma once

#include "Apps/DemoVenue/Model.hpp"
#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

/// Adds the parts of the connectors that are visible on the floor.
void addConnectors(Model& model, const Plan& plan, const Floor& floor);

}  // namespace orivanta::demo
