#include "Apps/Import/Read/Osm/OsmLevelFindings.hpp"

#include <fmt/core.h>

namespace orivanta::importer {

Finding levelUnreadable(const OsmThing& thing, std::string_view key, std::string_view text,
                        bool isPartly, const std::string& file) {
  Finding finding;
  finding.rule = "level-unreadable";
  finding.source = thing.id;
  finding.file = file;
  finding.field = key;
  finding.message = fmt::format("The {} \"{}\" is no number, list or range of numbers.", key,
                                text.substr(0, 100));
  finding.effect = isPartly         ? "The parts that are none are left out."
                   : key == "level" ? "The thing is left out."
                                    : "It is not repeated.";
  finding.advice =
      "Number the levels, with 0 for the ground floor, and put texts of signs into level:ref.";
  return finding;
}

Finding levelMissing(const OsmThing& thing, const std::string& file) {
  Finding finding;
  finding.rule = "level-missing";
  finding.source = thing.id;
  finding.file = file;
  finding.field = "level";
  finding.level = 0.0;
  finding.message =
      fmt::format("The {} is indoors, but it has no level.", thing.isLine() ? "path" : "area");
  finding.effect = "It is drawn on level 0.";
  finding.advice = "Add the tag \"level\" to it.";
  return finding;
}

Finding levelLost(const OsmThing& thing, const std::string& file) {
  Finding finding;
  finding.rule = "level-missing";
  finding.source = thing.id;
  finding.file = file;
  finding.field = "level";
  finding.message = fmt::format(
      "The {} is indoors, but it has no level, and what it touches does not tell which.",
      thing.isNode() ? "door" : "line");
  finding.effect = "It is left out.";
  finding.advice = "Add the tag \"level\" to it.";
  return finding;
}

}  // namespace orivanta::importer
