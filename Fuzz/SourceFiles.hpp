// What the fuzzers of the importer's readers share.
#pragma once

#include <cmath>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Fuzz/Fuzzer.hpp"

namespace orivanta::importer {

/// The files of a source. Each begins with a line that is its name; a line "====" is between them.
inline std::vector<SourceFile> sourceFiles(std::string_view input) {
  std::vector<SourceFile> files;
  while (!input.empty()) {
    std::string_view file = fuzz::takeUpTo("\n====\n", input);
    std::string name(fuzz::takeUpTo("\n", file));
    std::erase(name, '\0');  // no file has such a name
    files.push_back({std::move(name), std::string(file)});
  }
  return files;
}

inline bool isFinite(const Outline& points) {
  for (const Point point : points)
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) return false;
  return true;
}

/// Stops the program if the reader has left something that the stages cannot work with.
inline void checkRead(const Building& building, const Findings& findings) {
  std::set<std::string> ids;
  for (const Area& area : building.areas) {
    ORIVANTA_REQUIRE(ids.insert(area.id).second);
    ORIVANTA_REQUIRE(!area.shape.empty() && std::isfinite(area.level));
    for (const Polygon& polygon : area.shape) {
      ORIVANTA_REQUIRE(isFinite(polygon.outer));
      for (const Outline& hole : polygon.holes) ORIVANTA_REQUIRE(isFinite(hole));
    }
  }
  for (const Place& place : building.places)
    for (const std::string& area : place.areas) ORIVANTA_REQUIRE(ids.contains(area));
  for (const Door& door : building.doors)
    ORIVANTA_REQUIRE(isFinite({door.position}) && isFinite(door.line));
  std::set<std::string> nodes;
  for (const SourceNode& node : building.sourceNodes) {
    ORIVANTA_REQUIRE(isFinite({node.spot.position}));
    nodes.insert(node.id);
  }
  for (const SourceLink& link : building.sourceLinks)
    ORIVANTA_REQUIRE(nodes.contains(link.from) && nodes.contains(link.to));
  for (const Finding& finding : findings.sorted()) ORIVANTA_REQUIRE(!finding.message.empty());
}

/// Reads the files as a format. Only `SourceError` may come out of it.
inline void checkReader(std::string_view input,
                        Building (*read)(std::vector<SourceFile>, const Options&, Findings&)) {
  Options options;
  options.limits.bytes = 64U << 20U;
  options.limits.vertices = 100'000;
  Findings findings;
  try {
    checkRead(read(sourceFiles(input), options, findings), findings);
  } catch (const SourceError&) {  // what the reader throws for a source that it cannot read
  }
}

}  // namespace orivanta::importer
