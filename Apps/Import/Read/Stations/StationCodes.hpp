// The codes of station networks (product specification of 2018 for indoor data and walking spaces).
#pragma once

#include <string_view>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// What a space with this code (B001 to B999) is.
AreaKind kindOfSpace(std::string_view code);

/// Whether a space with this code may be a hall as well as a room: the network tells.
bool mayBeHall(std::string_view code);

/// Whether a facility with this code (F001 to F214) is a place of its own. Connectors, signs and
/// fire extinguishers are not.
bool isPlace(std::string_view code);

/// Whether a facility is what a space around it is, such as a symbol of toilets in a toilet.
bool isSame(std::string_view facilityCode, std::string_view spaceCode);

/// How a link with this route type is used.
LinkKind kindOfLink(std::string_view routeType);

/// The direction of a link; both for an unknown code.
Direction directionOfLink(std::string_view code);

/// What the class of an elevator says.
Wheelchair wheelchairOfElevator(std::string_view code);

}  // namespace orivanta::importer
