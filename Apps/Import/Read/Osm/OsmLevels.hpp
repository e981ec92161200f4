// Finds out on which levels things are, from their tags and from the things that they touch.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/Osm/OsmThing.hpp"

namespace orivanta::importer {

/// Sets `OsmThing::levels` from level=* and repeat_on=*. Things without these tags take the levels
/// of what they touch: doors those of the rooms on whose outlines they are, flights of steps and
/// footways those at their ends; see also `takeFootways`. Entrances and destinations in one of the
/// `buildings` are on level 0, and so are, with a finding, rooms. Things without a level are left
/// out, and reported if they are tagged as indoors. Throws `SourceError` if the lists have more
/// than `limits.vertices` levels.
void arrangeLevels(std::vector<OsmThing>& things, const std::vector<std::size_t>& buildings,
                   const std::string& file, const Limits& limits, Findings& findings);

}  // namespace orivanta::importer
