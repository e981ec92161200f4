// Writes the demo venue as a venue package: the collections of the web API in JSON.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "Apps/DemoVenue/Network.hpp"
#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

/// The identifier of the polygon of a place, a walkway or a connector on a floor. The material in
/// the floor's model has the same name.
std::string polygonId(std::string_view floor, std::string_view part);

/// The identifier of a floor's map.
std::string mapId(std::string_view floor);

/// Writes venue.json and the six collections into the folder, which must exist, with one record per
/// line. Throws `std::runtime_error` if a file cannot be written.
void writePackage(const Plan& plan, const Network& network, const std::filesystem::path& folder);

}  // namespace orivanta::demo
