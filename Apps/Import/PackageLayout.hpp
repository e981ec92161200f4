// What all files of a written package agree on: units, identifiers, names of files.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Refers to the building, which must outlive it.
class PackageLayout {
 public:
  explicit PackageLayout(const Building& building);

  const Building& building() const { return *building_; }
  /// The place that an area belongs to, or null.
  const Place* placeOf(const Area& area) const;

  /// A round number, so that the longest side of the building is 800 to 2,000 units.
  double unitsPerMeter() const { return unitsPerMeter_; }
  /// A coordinate or a height of the package, rounded to a hundredth.
  double toUnits(double meters) const;

  /// Of the venue: made of its name or, if nothing remains of it, of its identifier.
  const std::string& slug() const { return slug_; }

  /// The storeys in the order of map.json: the one with the longest side, then from bottom to top.
  const std::vector<const Storey*>& maps() const { return maps_; }
  /// Null if there is no storey with this ordinal.
  const Storey* storeyAt(double level) const;
  /// The identifier of the map; empty if there is none.
  std::string mapAt(double level) const;
  /// The file name of a storey's model and plan without its ending.
  const std::string& fileName(const Storey& storey) const { return files_.at(storey.ordinal); }

 private:
  const Building* building_;
  std::unordered_map<std::string_view, const Place*> places_;
  double unitsPerMeter_ = 1.0;
  std::string slug_;
  std::vector<const Storey*> maps_;
  std::map<double, const Storey*> byLevel_;
  std::map<double, std::string> files_;
};

/// Whether areas of this kind can be tapped: they have a polygon and a material of their own.
bool isTappable(AreaKind kind);

/// The identifier without white space and control characters, which names of materials cannot
/// contain.
std::string packageId(std::string_view source);

}  // namespace orivanta::importer
