// What the parts of the IMDF reader share.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/Imdf/ImdfArchive.hpp"

namespace orivanta::importer {

struct ImdfImport {
  const ImdfArchive& archive;
  const Options& options;
  Building& building;
  Findings& findings;
  std::unordered_map<std::string, double> levels;      ///< imported levels and their ordinals
  std::unordered_map<std::string, std::size_t> areas;  ///< indices in `building.areas` by feature
  std::unordered_map<std::string, std::size_t> doors;  ///< indices in `building.doors` by feature

  /// The ordinal of an imported level that the feature's level_id names.
  std::optional<double> levelOf(const ImdfFeature& feature) const;

  /// Null if the feature has no imported area.
  Area* area(const std::string& featureId) const;

  /// Whether a part of the feature lies within the bounds of the import.
  bool isWithinBounds(const ImdfFeature& feature) const;
};

/// The values of a feature that say something about wheelchairs and about who may enter.
Wheelchair imdfWheelchair(const ImdfFeature& feature);
Access imdfAccess(const ImdfFeature& feature);

/// The mean of the corners.
Point imdfMiddle(const Polygon& polygon);

/// Where the name of a feature is shown, in meters.
std::optional<Point> imdfDisplayPoint(const ImdfArchive& archive, const ImdfFeature& feature);

/// The parts of the reader, in this order.
void readImdfAreas(ImdfImport& import);
void readImdfPlaces(ImdfImport& import);
void readImdfConnectors(ImdfImport& import);

}  // namespace orivanta::importer
