// Findings about things of OpenStreetMap whose level is not clear.
#pragma once

#include <string>
#include <string_view>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Read/Osm/OsmThing.hpp"

namespace orivanta::importer {

/// The tag `key` has the value `text`, of which nothing, or only a part, can be read.
Finding levelUnreadable(const OsmThing& thing, std::string_view key, std::string_view text,
                        bool isPartly, const std::string& file);

/// An area indoors that is drawn on level 0 because it has none.
Finding levelMissing(const OsmThing& thing, const std::string& file);

/// A line indoors that is left out because it has no level.
Finding levelLost(const OsmThing& thing, const std::string& file);

}  // namespace orivanta::importer
