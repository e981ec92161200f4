// Findings about the features of a station network.
#pragma once

#include <string>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Read/Stations/StationLayer.hpp"

namespace orivanta::importer {

void reportFeature(Findings& findings, const StationLayer& layer, const StationFeature& feature,
                   Severity severity, const char* rule, std::string message, std::string effect,
                   const char* advice);

/// Reports a feature that is not imported.
void leaveOutFeature(Findings& findings, const StationLayer& layer, const StationFeature& feature,
                     const char* rule, std::string message, const char* advice);

}  // namespace orivanta::importer
