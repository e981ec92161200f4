// Finds out where the coordinates of an IndoorGML document lie, and how long its unit is.
#pragma once

#include <optional>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Projection.hpp"
#include "Apps/Import/Read/IndoorGml/GmlStoreys.hpp"
#include "Apps/Import/Read/IndoorGml/IndoorGmlDocument.hpp"

namespace orivanta::importer {

class GmlScale {
 public:
  /// Takes the reference system of the document if it is supported and fits the coordinates. Else
  /// guesses the unit from the height of storeys or the width of doors, with a finding.
  GmlScale(const GmlDocument& document, const GmlStoreys& storeys, const Options& options,
           Findings& findings);

  /// From the document to meters on the building's plane.
  Point toPlane(Point point) const;
  double metersPerUnit() const { return metersPerUnit_; }
  bool isKnown() const { return known_; }
  std::optional<Georeference> georeference() const;

 private:
  void guess(const GmlDocument& document, const GmlStoreys& storeys, const Options& options,
             Findings& findings);

  double metersPerUnit_ = 1.0;
  bool known_ = true;
  bool latitudeFirst_ = false;
  Point origin_;
  std::optional<Projection> projection_;
};

}  // namespace orivanta::importer
