// Makes a finding from its texts.
#pragma once

#include <string>
#include <utility>

#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// What a person reads about a finding.
struct FindingTexts {
  std::string message;
  std::string effect = {};
  std::string advice = {};
};

inline Finding makeFinding(Severity severity, std::string rule, std::string source,
                           FindingTexts texts) {
  Finding finding;
  finding.severity = severity;
  finding.rule = std::move(rule);
  finding.source = std::move(source);
  finding.message = std::move(texts.message);
  finding.effect = std::move(texts.effect);
  finding.advice = std::move(texts.advice);
  return finding;
}

/// As above, with the storey and the position concerned.
inline Finding makeFinding(Severity severity, std::string rule, std::string source, Spot spot,
                           FindingTexts texts) {
  Finding finding = makeFinding(severity, std::move(rule), std::move(source), std::move(texts));
  finding.level = spot.level;
  finding.position = spot.position;
  return finding;
}

}  // namespace orivanta::importer
