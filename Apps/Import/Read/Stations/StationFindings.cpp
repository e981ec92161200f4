#include "Apps/Import/Read/Stations/StationFindings.hpp"

#include <utility>

namespace orivanta::importer {

void reportFeature(Findings& findings, const StationLayer& layer, const StationFeature& feature,
                   Severity severity, const char* rule, std::string message, std::string effect,
                   const char* advice) {
  Finding finding;
  finding.severity = severity;
  finding.rule = rule;
  finding.source = feature["id"];
  finding.file = layer.file;
  finding.message = std::move(message);
  finding.effect = std::move(effect);
  finding.advice = advice;
  findings.add(std::move(finding));
}

void leaveOutFeature(Findings& findings, const StationLayer& layer, const StationFeature& feature,
                     const char* rule, std::string message, const char* advice) {
  reportFeature(findings, layer, feature, Severity::warning, rule, std::move(message),
                "It is left out.", advice);
}

}  // namespace orivanta::importer
