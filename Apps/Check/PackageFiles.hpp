// Checks the files that the records of a package refer to, and the models of its floors.
#pragma once

#include "Apps/Check/PackageRecords.hpp"

namespace orivanta::check {

/// Reports references to files that do not exist, and floors without a model.
void checkFiles(const PackageRecords& records, Findings& findings);

/// Reports models that cannot be read, polygons without a material in the model of their floor, and
/// entrances far from their polygon. Reads all models.
void checkModels(const PackageRecords& records, Findings& findings);

/// The model's file, or nothing if the floor has none in the package.
std::optional<std::filesystem::path> modelOf(const PackageRecords& records, const Record& map);

}  // namespace orivanta::check
