// Makes findings about IMDF features.
#pragma once

#include <string>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Read/Imdf/ImdfArchive.hpp"

namespace orivanta::importer {

/// The texts of a finding; see `Finding`.
struct ImdfBreach {
  Severity severity = Severity::violation;
  std::string rule;
  std::string field;
  std::string message;
  std::string effect;
  std::string advice;
};

/// A finding about a feature, with its file, storey and position.
Finding findingFor(const ImdfArchive& archive, const ImdfFeature& feature, ImdfBreach breach);

}  // namespace orivanta::importer
