// What the floors of a venue are called, and the order in which they are listed.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// A list of floors, which it owns.
using FloorList = std::vector<std::shared_ptr<Map>>;

/// The floors sorted by elevation, the highest first. Floors of equal elevation keep their order.
ORIVANTA_API FloorList floorsFromTop(FloorList floors);

/// The floors on which a location has nodes or polygons, each once, in the order of its nodes and
/// then of its polygons. The venue has been loaded.
ORIVANTA_API FloorList floorsOf(const Location& location);

/// Returns whether a location has a node or a polygon on a floor. The venue has been loaded.
ORIVANTA_API bool isOnFloor(const Location& location, const Map& floor);

/// The first floor whose identifier, short name or name equals the text; if there is none, the
/// first whose short name or name equals it without regard to case and width. Null if no floor
/// does. A name that is missing counts as an empty text.
ORIVANTA_API std::shared_ptr<Map> floorNamed(const FloorList& floors, std::string_view text);

/// The short name of a floor, such as "G" or "B1", for lists and buttons. If it is missing, the
/// name, or else the identifier. At most 80 columns, without control characters.
ORIVANTA_API std::string floorLabel(const Map& floor);

/// The labels of several floors, separated by commas.
ORIVANTA_API std::string floorLabels(const FloorList& floors);

/// The name of a floor, such as "Ground Floor", for sentences. If it is missing, the floor's label.
/// At most 80 columns, without control characters.
ORIVANTA_API std::string floorName(const Map& floor);

}  // namespace orivanta
