// The name of a place in the panels.
#pragma once

#include <string>

#include "Source/Fwd.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// Returns the name of a place or connector, see `labelName`. If that is empty, the name of its
/// first floor replaces it.
std::string shownName(const Venue& venue, const Location& place);

/// Returns the name of a kind of connectors, such as "Elevator".
std::string connectorName(const Vortex& connector, const guidance::InterfaceTexts& texts);

/// Returns the name of a place in a list. That of a connector is the text on its sign, or else the
/// name of its kind. Unlike `shownName`, the result may be a generated name, by which places of a
/// list differ.
std::string listedName(const Venue& venue, const Location& place,
                       const guidance::InterfaceTexts& texts);

}  // namespace orivanta::viewer
