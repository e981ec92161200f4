// Models of elevators, escalators, stairs and ramps.
#pragma once

#include "Apps/DemoVenue/Plan.hpp"
#include "Apps/Package/Model.hpp"

namespace orivanta::demo {

/// Adds the parts of the connectors that are visible on the floor.
void addConnectors(package::Model& model, const Plan& plan, const Floor& floor);

}  // namespace orivanta::demo
