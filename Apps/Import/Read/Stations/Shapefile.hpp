// Reads Shapefiles from memory.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/Read/TextPool.hpp"

namespace orivanta::importer {

class StationFeature;

/// The files of one Shapefile. They refer to the bytes of the source's files.
struct Shapefile {
  std::string name;  ///< of the .shp file
  std::string_view shp;
  std::string_view dbf;
  std::string_view prj;  ///< may be empty
  std::string_view cpg;  ///< may be empty
};

/// Finds all .shp files and the files that belong to them, in any case of letters.
std::vector<Shapefile> findShapefiles(const std::vector<SourceFile>& files);

/// Reads all shapes and their attributes, whose values are kept in `texts`. Texts are converted to
/// UTF-8 from the encoding that the .cpg file names; without one they are UTF-8 if they are valid,
/// or else Shift_JIS. A cut file gives the shapes before the cut and a finding. Throws
/// `SourceError` if it is no Shapefile.
std::vector<StationFeature> readShapefile(const Shapefile& file, const Limits& limits,
                                          std::size_t& vertices, TextPool& texts,
                                          Findings& findings);

}  // namespace orivanta::importer
