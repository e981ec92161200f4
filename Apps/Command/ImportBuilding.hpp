// The subcommand `import`: makes a venue package of a person's own building.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Import/Options.hpp"

namespace orivanta::command {

/// The texts are as typed; `importBuilding` checks them.
struct ImportOptions {
  std::vector<std::filesystem::path> sources;
  std::filesystem::path output;
  std::optional<std::string> format;  ///< one of `importFormats`
  std::string building;
  std::optional<std::string> bounds;     ///< "S,W,N,E"
  std::vector<std::string> languages;    ///< each may contain several with commas
  std::vector<std::string> levelShifts;  ///< "BUILDING=N"
  double storeyHeight = 4.0;             ///< meters
  std::string network = "auto";          ///< or "source", "derive"
  std::string doors = "guess";           ///< or "strict"
  std::string attribution;               ///< in addition to that of the source
  std::string license;                   ///< in addition to that of the source
  std::optional<std::string> fixes;
  std::optional<std::string> report;
  bool strict = false;  ///< warnings prevent writing
  bool json = false;
  bool quiet = false;  ///< no progress
};

/// Returns the choices in the form of the importer, with a progress line on standard error unless
/// `quiet` is set. Throws `CommandError` if a text cannot be used.
importer::Options importerOptions(const ImportOptions& options);

/// The names of the sources, separated by spaces.
std::string sourceNames(const ImportOptions& options);

/// The names of the formats, such as "imdf".
std::vector<std::string> importFormats();

/// Writes the package and, if wanted, the report, and prints one line with what was made, or JSON.
/// Returns `notFound` if `strict` is set and there is a violation or a warning; the package is then
/// not written. Throws `CommandError` if the source cannot be read or a file cannot be written;
/// the folder of the package is then unchanged.
ExitCode importBuilding(const ImportOptions& options);

}  // namespace orivanta::command
