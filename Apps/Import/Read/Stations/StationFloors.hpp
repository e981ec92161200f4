// The floors of a station network.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/Stations/StationLayer.hpp"

namespace orivanta::importer {

/// Keeps references to its arguments.
class StationFloors {
 public:
  StationFloors(const Options& options, Building& building, Findings& findings)
      : options_(options), building_(building), findings_(findings) {}

  /// Adds a storey to the building, and takes the outline from the feature.
  void add(const StationLayer& layer, StationFeature& feature);

  /// The storey of the floor that a feature names, or else its own, or else that of the file's
  /// name. If there is none of these, reports that the feature is left out.
  std::optional<double> levelOf(const StationLayer& layer, const StationFeature& feature);

 private:
  const Options& options_;
  Building& building_;
  Findings& findings_;
  std::unordered_map<std::string, double> floors_;
};

}  // namespace orivanta::importer
