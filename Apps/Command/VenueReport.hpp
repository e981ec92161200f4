// The description of a venue as lines for people and as JSON for programs.
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <memory>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::command {

/// The whole venue, which has been loaded; of its connectors all or the accessible ones.
std::string venueText(const Venue& venue, bool accessibleOnly);
boost::json::object venueJson(const Venue& venue, bool accessibleOnly);

/// Locations with their floors and categories.
std::string locationsText(const std::vector<std::shared_ptr<Location>>& locations);
boost::json::array locationsJson(const std::vector<std::shared_ptr<Location>>& locations);

}  // namespace orivanta::command
