// The files of a source, and the readers of all formats.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"

namespace orivanta::importer {

/// A file of a source: one of the given files, a file of a given folder, or a member of a given zip
/// archive.
struct SourceFile {
  std::string name;  ///< as in messages: "mall.zip/level.geojson"
  std::string bytes;

  /// Frees the contents, which may be large.
  void release() { std::string().swap(bytes); }
};

/// Reads all files. Folders are read with their subfolders, and zip archives are unpacked; both in
/// the order of their names, and only files with an extension of a known format. With a .shp file,
/// the files that belong to it are read as well. Throws `SourceError` if a file cannot be read or
/// the files are larger than `limits.bytes`, counted while unpacking.
std::vector<SourceFile> readFiles(const std::vector<std::filesystem::path>& sources,
                                  const Limits& limits);

/// Recognizes the format from the contents. Throws `SourceError` if it is none of the known ones.
Format recognizeFormat(const std::vector<SourceFile>& files);

/// Reads a building of any format. `options.sources` is not used. All texts of the result are valid
/// UTF-8: others are cleaned, with findings. Throws `SourceError` if the files are no source of the
/// format, or contain nothing to import. Move the files into it if they are large: their contents
/// are released as soon as possible.
Building readBuilding(std::vector<SourceFile> files, Format format, const Options& options,
                      Findings& findings);

// One reader per format; each throws as above.
Building readImdf(std::vector<SourceFile> files, const Options& options, Findings& findings);
Building readOsmXml(std::vector<SourceFile> files, const Options& options, Findings& findings);
Building readOsmPbf(std::vector<SourceFile> files, const Options& options, Findings& findings);
Building readOverpassJson(std::vector<SourceFile> files, const Options& options,
                          Findings& findings);
Building readOsmGeoJson(std::vector<SourceFile> files, const Options& options, Findings& findings);
Building readIndoorGml(std::vector<SourceFile> files, const Options& options, Findings& findings);
Building readStations(std::vector<SourceFile> files, const Options& options, Findings& findings);

}  // namespace orivanta::importer
