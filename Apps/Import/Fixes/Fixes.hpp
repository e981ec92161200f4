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
// middle of the border with that area. "name" also names connectors, by the identifier of any part
// of them. "joins" lists areas or positions that one connector joins. "note" is for people.
#pragma once

#include <boost/json/object.hpp>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// The corrections of one file. What cannot be used is reported as findings and has no effect.
class Fixes {
 public:
  Fixes() = default;

  /// `name` is that of the file, for messages. Throws `SourceError` if the text is no JSON object.
  Fixes(const std::string& text, std::string name);

  /// Throws `SourceError` if the file cannot be read, is larger than 16 MiB, or is no JSON object.
  static Fixes read(const std::filesystem::path& file);

  /// Corrects what a reader has read.
  void apply(Building& building, Findings& findings);

  /// Names the connectors that the stages have made, by their identifiers or those of the areas
  /// that they lead to. Then reports the identifiers that belong to nothing.
  void nameConnectors(Building& building, Findings& findings) const;

 private:
  std::string name_;
  boost::json::object corrections_;
  std::set<std::string> unknown_;  // identifiers that the source does not have
};

/// A file of corrections with an entry for each record that the findings concern. The entries have
/// no effect until a person completes them: each contains only "note", the finding's text.
std::string fixesSkeleton(const std::vector<Finding>& findings);

}  // namespace orivanta::importer
