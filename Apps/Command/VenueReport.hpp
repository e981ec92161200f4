// Describes a venue as text and as JSON.
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <memory>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::command {

/// Describes a loaded venue, with all of its connectors or only the accessible ones.
std::string venueText(const Venue& venue, bool accessibleOnly);
boost::json::object venueJson(const Venue& venue, bool accessibleOnly);

/// Describes locations with their floors and categories.
std::string locationsText(const std::vector<std::shared_ptr<Location>>& locations);
boost::json::array locationsJson(const std::vector<std::shared_ptr<Location>>& locations);

}  // namespace orivanta::command
