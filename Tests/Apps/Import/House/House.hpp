// A small building that the tests write in every format that can be imported: three storeys around
// a courtyard, twelve rooms, stairs, an elevator, and an escalator that only goes up.
#pragma once

#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Read/Sources.hpp"

namespace orivanta::importer::house {

/// The building as a source would say it. Nothing is derived.
Building make();

/// Where the writers put its origin.
inline constexpr Georeference origin = {52.0, 13.0};

// The files of the house in each format.
std::vector<SourceFile> asOsmXml(const Building& building);
std::vector<SourceFile> asOverpassJson(const Building& building);
std::vector<SourceFile> asOsmGeoJson(const Building& building);
std::vector<SourceFile> asImdf(const Building& building);
std::vector<SourceFile> asIndoorGml(const Building& building);
std::vector<SourceFile> asStations(const Building& building);  ///< also its source network
std::vector<SourceFile> asShapefile(const Building& building);
std::vector<SourceFile> asOsmPbf(const Building& building);  ///< empty if osmium is missing

/// What osmium makes of an extract. The bytes are empty if osmium is missing.
SourceFile converted(const SourceFile& xml, const std::string& name, const std::string& how);

}  // namespace orivanta::importer::house
