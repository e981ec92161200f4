// Reads GeoJSON (RFC 7946) feature collections.
#pragma once

#include <boost/json/object.hpp>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/Sources.hpp"

namespace orivanta::importer {

/// All parts of a geometry; collections are flattened. Positions are as in the file: longitude and
/// latitude in degrees, or meters for other reference systems. Heights are dropped.
struct GeoGeometry {
  std::vector<Point> points;
  std::vector<std::vector<Point>> lines;
  std::vector<Polygon> polygons;
};

struct GeoFeature {
  std::string id;  ///< of the feature, as text; empty if there is none
  boost::json::object properties;
  boost::json::object members;  ///< the other members, "id" included
  GeoGeometry geometry;
};

struct GeoFeatures {
  std::string type;  ///< member "type" of the root, such as "FeatureCollection"; may be empty
  std::string name;  ///< member "name" of the collection; may be empty
  std::string crs;   ///< the name of its reference system, such as "urn:ogc:def:crs:EPSG::6677"
  std::vector<GeoFeature> features;
};

/// Reads a feature collection, a single feature or an array of features. A feature that cannot be
/// read is left out with a finding. `vertices` is increased by the number of positions; beyond
/// `limits.vertices`, and if the file is not JSON or no GeoJSON, it throws `SourceError`.
GeoFeatures readGeoJson(const SourceFile& file, const Limits& limits, std::size_t& vertices,
                        Findings& findings);

}  // namespace orivanta::importer
