// The commands of a page for a map, by name. `MapCommands.hpp` describes them.
#pragma once

#include <array>
#include <boost/json/value.hpp>
#include <span>
#include <string_view>

#include "Apps/Web/Map/MapHost.hpp"

namespace orivanta::web {

/// Carries out a command. A value of another type than that of the command is ignored.
using Command = void (*)(MapHost& map, const boost::json::value& value);

/// A member of what a page asks.
struct NamedCommand {
  std::string_view name;
  Command command;
};

/// Returns the commands for the floors, the look, and what covers the map.
std::span<const NamedCommand> lookCommands();

/// Returns the commands that move the camera.
std::span<const NamedCommand> cameraCommands();

/// Returns the commands for the route, places, markers and the visitor's position.
std::span<const NamedCommand> markCommands();

}  // namespace orivanta::web
