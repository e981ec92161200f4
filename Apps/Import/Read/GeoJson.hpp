// Reads GeoJSON (RFC 7946) feature collections.
#pragma once

#include <boost/json/object.hpp>
#include <functional>
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

/// What is around the features.
struct GeoFrame {
  std::string type;  ///< member "type" of the root, such as "FeatureCollection"; may be empty
  std::string name;  ///< member "name" of the collection; may be empty
  std::string crs;   ///< the name of its reference system, such as "urn:ogc:def:crs:EPSG::6677"
};

struct GeoFeatures : GeoFrame {
  std::vector<GeoFeature> features;
};

/// Takes the features of a file one after another. The memory of `properties` and `members` is
/// reused for the next feature: `use` may move the geometry, but must copy their values.
using UseFeature = std::function<void(GeoFeature& feature)>;

/// Reads a feature collection, a single feature or an array of features. A feature that cannot be
/// read is left out with a finding. `vertices` is increased by the number of positions; beyond
/// `limits.vertices`, and if the file is not JSON or no GeoJSON, it throws `SourceError`. The
/// memory of a single feature is bounded.
GeoFrame readGeoJson(const SourceFile& file, const Limits& limits, std::size_t& vertices,
                     Findings& findings, const UseFeature& use);

/// As above, for small files.
GeoFeatures readGeoJson(const SourceFile& file, const Limits& limits, std::size_t& vertices,
                        Findings& findings);

/// As the first, for files whose coordinates must be longitude and latitude. Where the latitude
/// certainly comes first, they are swapped, with a finding; where only the angles of the shapes say
/// so, there is a finding. Throws `SourceError` for other coordinates and reference systems.
GeoFrame readGeoJsonInDegrees(const SourceFile& file, const Limits& limits, std::size_t& vertices,
                              Findings& findings, const UseFeature& use);

}  // namespace orivanta::importer
