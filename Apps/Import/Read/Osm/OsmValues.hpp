// Reads the values of tags that rooms, doors and lines have in common.
#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Read/Osm/OsmData.hpp"

namespace orivanta::importer {

/// The name with its translations. Without a name, the translation into English or else the first
/// one, or else the brand, or the number (ref=*).
Names namesOf(const OsmTags& tags);

/// Whether there is a name, in any language.
bool isNamed(const OsmTags& tags);

/// The values of `key` and of "key:LANGUAGE", by language; "" is the key itself.
std::map<std::string, std::string> translations(const OsmTags& tags, std::string_view key);

/// What access=* and foot=* say; the latter counts for people on foot.
Access accessOf(const OsmTags& tags);
Wheelchair wheelchairOf(const OsmTags& tags);

/// Meters, from "1.4", "1,4 m" or "140 cm". Nothing for other texts and impossible widths.
std::optional<double> widthOf(const OsmTags& tags);

/// In which direction a line is used, relative to its points (conveying=*, oneway=*). Escalators
/// without a stated direction have an unknown one.
Direction directionOfLine(const OsmTags& tags);

/// In which direction an area is used; forward is upward.
Direction directionOfArea(const OsmTags& tags);

/// The value of the first of the keys that is there.
std::string firstOf(const OsmTags& tags, std::initializer_list<std::string_view> keys);

}  // namespace orivanta::importer
