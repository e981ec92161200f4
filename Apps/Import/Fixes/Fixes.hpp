// A person's corrections of a source, in a file of their own, so that they outlive a new import.
//
// The file is a JSON object from identifiers of the source to corrections:
//
//     {
//       "way/4711": {"kind": "room", "name": "Workshop", "hours": "Mo-Fr 08:00-17:00",
//                    "door": {"latitude": 51.02551, "longitude": 13.72271}},
//       "way/4712": {"door": "way/4720"},
//       "way/4713": {"joins": ["way/4714"]},
//       "way/4715": {"joins": [{"level": 0, "x": 12.5, "y": -3}, {"level": 1, "x": 12.5, "y": 4}]},
//       "node/99": {"ignore": true}
//     }
//
// Positions are geographic, or in meters as in findings. A "door" that is an identifier lies in the
// middle of the border with that area. "joins" lists areas or positions that one connector joins.
// "note" is for people.
#pragma once

#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// Applies the corrections in `text`, the contents of the file `name`, to what a reader has read.
/// Unknown identifiers, unknown members and unusable values are reported as findings and have no
/// effect. Throws `SourceError` if the text is no JSON object.
void applyFixes(Building& building, const std::string& text, const std::string& name,
                Findings& findings);

/// A file of corrections with an entry for each record that the findings concern. The entries have
/// no effect until a person completes them: each contains only "note", the finding's text.
std::string fixesSkeleton(const std::vector<Finding>& findings);

}  // namespace orivanta::importer
