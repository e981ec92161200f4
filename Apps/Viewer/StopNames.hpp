// The stops of a route as they are shown.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orivanta::viewer {

/// The names of the stops of a route. A missing name asks for that stop.
struct StopNames {
  std::optional<std::string> from;
  std::vector<std::string> between;
  std::optional<std::string> to;
};

/// An end of a route.
enum class RouteEnd { start, destination };

}  // namespace orivanta::viewer
