// What tags of OpenStreetMap mean for the map of a building (Simple Indoor Tagging).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Read/Osm/OsmData.hpp"

namespace orivanta::importer {

/// Whether the tags say that the thing is indoors: level=*, repeat_on=*, indoor=*, room=* or
/// buildingpart=*.
bool isIndoors(const OsmTags& tags);

/// Whether a closed way with these tags is an area and no line.
bool isAreaByTags(const OsmTags& tags);

/// Whether the tags are those of a building, a mall or an airport terminal, as a whole.
bool isBuilding(const OsmTags& tags);

/// Whether the tags are those of the outline of a level (indoor=level).
bool isLevelOutline(const OsmTags& tags);

/// What an area is for. Nothing for one that does not matter indoors.
std::optional<AreaKind> areaKind(const OsmTags& tags);

/// What a line is for. Nothing for one that does not matter indoors.
std::optional<LineKind> lineKind(const OsmTags& tags);

bool isDoor(const OsmTags& tags);
bool isElevator(const OsmTags& tags);

/// Whether people go there for its own sake, such as a shop or toilets. Rooms without such a use
/// are no destinations by their tags.
bool isDestination(const OsmTags& tags);

/// The tag that describes best what a place or a room is, such as "shop=clothes". Toilets for only
/// men, women or wheelchairs are "toilets=men", "toilets=women" and "toilets=wheelchair".
std::string categoryOf(const OsmTags& tags);

}  // namespace orivanta::importer
