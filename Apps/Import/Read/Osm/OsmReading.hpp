// What the readers of the formats of OpenStreetMap share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/Osm/OsmData.hpp"
#include "Apps/Import/Read/Sources.hpp"

namespace orivanta::importer {

/// Reads a whole decimal number with an optional sign.
std::optional<std::int64_t> osmNumber(std::string_view text);

/// "node", "way" and "relation", and their first letters; nothing for another text.
std::optional<OsmType> osmType(std::string_view text);

/// Reports that a file ends in the middle.
void reportCut(const std::string& file, std::size_t line, Findings& findings);

/// Reports what Overpass remarks about its own answer, such as that it took too long.
void reportRemark(const std::string& file, const std::string& remark, Findings& findings);

/// Reports an object that cannot be read.
void reportUnreadable(const std::string& file, const std::string& place, const std::string& cause,
                      Findings& findings);

/// Makes a building of an extract. Throws `SourceError` if nothing in it is indoors.
Building buildingFromOsm(const OsmData& data, const Options& options, Findings& findings);

/// Reads all files with `read(file, data)`, and converts the extract to a building. The contents of
/// files are released as soon as they have been read.
template <class Read>
Building readOsm(std::vector<SourceFile> files, const Options& options, Findings& findings,
                 const Read& read) {
  OsmData data(options.limits, files.empty() ? std::string() : files.front().name);
  for (SourceFile& file : files) {
    data.beginFile(file.name);
    read(file, data);
    file.release();
  }
  data.finish();
  return buildingFromOsm(data, options, findings);
}

}  // namespace orivanta::importer
