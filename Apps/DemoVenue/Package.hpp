// The demo venue as a venue package: the collections of the web API in JSON.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "Apps/DemoVenue/Network.hpp"
#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

/// The identifier of a place's, a walkway's or a connector's polygon on a floor; also the name of
/// its material in the floor's model.
std::string polygonId(std::string_view floor, std::string_view part);

/// The identifier of a floor's map.
std::string mapId(std::string_view floor);

/// Writes venue.json and the six collections into the folder, which exists. One record a line.
/// Throws `std::runtime_error` when a file cannot be written.
void writePackage(const Plan& plan, const Network& network, const std::filesystem::path& folder);

}  // namespace orivanta::demo
