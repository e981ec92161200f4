// Finds out whether coordinates that should be longitude and latitude are something else.
#pragma once

#include <cstddef>
#include <string>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Read/GeoJson.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

/// The error of coordinates that are not longitude and latitude.
class CoordinateError : public SourceError {
 public:
  using SourceError::SourceError;
};

/// Throws `CoordinateError` if a reference system, whose name may be empty, has other coordinates
/// than longitude and latitude.
void requireDegrees(const std::string& crs, const std::string& file);

/// Looks at the positions of a source.
class CoordinateCheck {
 public:
  void add(const GeoGeometry& geometry);

  /// Whether all positions are latitude and longitude, in this order. Adds a finding if so, and
  /// also if only the angles of the shapes say so. Throws `CoordinateError` if the positions cannot
  /// be degrees.
  bool areSwapped(const std::string& file, Findings& findings) const;

 private:
  void add(Point position);
  void addCorners(const Outline& ring);

  std::size_t positions_ = 0;
  std::size_t degrees_ = 0;    // positions that may be longitude and latitude
  std::size_t exchanged_ = 0;  // positions that can only be latitude and longitude
  std::size_t corners_ = 0;
  std::size_t right_ = 0;           // corners with right angles
  std::size_t rightIfSwapped_ = 0;  // corners that have them if the order is the other one
  Point example_;
};

}  // namespace orivanta::importer
