// What the readers of the formats of OpenStreetMap share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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

/// Reports an object that cannot be read.
void reportUnreadable(const std::string& file, const std::string& place, const std::string& cause,
                      Findings& findings);

/// Reads all files with `read(file, data)`, then converts the extract to a building.
template <class Read>
Building readOsm(const std::vector<SourceFile>& files, const Options& options, Findings& findings,
                 const Read& read);

/// Makes a building of an extract. Throws `SourceError` if nothing in it is indoors.
Building buildingFromOsm(const OsmData& data, const Options& options, Findings& findings);

template <class Read>
Building readOsm(const std::vector<SourceFile>& files, const Options& options, Findings& findings,
                 const Read& read) {
  OsmData data(options.limits, files.empty() ? std::string() : files.front().name);
  for (const SourceFile& file : files) {
    data.beginFile(file.name);
    read(file, data);
  }
  data.finish();
  return buildingFromOsm(data, options, findings);
}

}  // namespace orivanta::importer
