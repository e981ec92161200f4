// The names of the floors of a venue, and the order in which they are listed.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// A list of floors. Owns them.
using FloorList = std::vector<std::shared_ptr<Map>>;

/// Returns the floors sorted by elevation, the highest first. Floors at the same elevation keep
/// their order.
ORIVANTA_API FloorList floorsFromTop(FloorList floors);

/// Returns the floors on which a location has nodes or polygons, each once, in the order of its
/// nodes and then of its polygons. The venue must be loaded.
ORIVANTA_API FloorList floorsOf(const Location& location);

/// Returns whether a location has a node or a polygon on a floor. The venue must be loaded.
ORIVANTA_API bool isOnFloor(const Location& location, const Map& floor);

/// Returns the first floor whose identifier, short name or name equals the text, or else the first
/// whose short name or name equals it ignoring case and width. Returns null if there is none. A
/// missing name counts as an empty text.
ORIVANTA_API std::shared_ptr<Map> floorNamed(const FloorList& floors, std::string_view text);

/// Returns the label of a floor for lists and buttons: its short name, such as "G" or "B1", or else
/// its name, or else its identifier. At most 80 columns, without control characters.
ORIVANTA_API std::string floorLabel(const Map& floor);

/// Returns the labels of several floors, separated by commas.
ORIVANTA_API std::string floorLabels(const FloorList& floors);

/// Returns the name of a floor for sentences, such as "Ground Floor", or its label if the name is
/// missing. At most 80 columns, without control characters.
ORIVANTA_API std::string floorName(const Map& floor);

}  // namespace orivanta
