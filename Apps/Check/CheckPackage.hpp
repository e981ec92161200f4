// Finds the mistakes in a venue package.
#pragma once

#include <filesystem>

#include "Apps/Import/Findings.hpp"

namespace orivanta::check {

/// How much of a package is read.
enum class Depth {
  records,  ///< the records and the names of files, as quick as loading the package
  all       ///< the models as well
};

/// Whether the folder is a venue package, complete or not: it contains venue.json, or at least two
/// other files of records.
bool isPackage(const std::filesystem::path& folder);

/// Checks a package. A violation means that a record, a reference or a file is not used; a warning,
/// that something is probably not meant so. Takes time about proportional to the size of the files.
importer::Findings checkPackage(const std::filesystem::path& folder, Depth depth = Depth::all);

}  // namespace orivanta::check
