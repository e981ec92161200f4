// Identifiers and tags in the properties of GeoJSON, as the programs that convert OpenStreetMap
// write them.
#pragma once

#include <boost/json/object.hpp>
#include <cstdint>
#include <optional>

#include "Apps/Import/Read/GeoJson.hpp"
#include "Apps/Import/Read/Osm/OsmData.hpp"

namespace orivanta::importer {

struct OsmObjectId {
  OsmType type = OsmType::node;
  std::int64_t id = 0;
  bool isGuessed = false;  ///< the type is not stated, and several features may have the number
};

/// The identifier of a feature: "way/1" or "w1" as its own identifier or in the properties "@id",
/// "id", "full_id" or "@osmId", or a type and a number in two properties, such as "@type" and "@id"
/// or "osm_type" and "osm_id". An "osm_id" without a type is that of a relation if it is negative;
/// otherwise the geometry tells the type. Nothing if there is none.
std::optional<OsmObjectId> osmObjectId(const GeoFeature& feature);

/// The properties that are tags, those in "tags", "other_tags" and "all_tags" included: as an
/// object, as JSON text, or as text of the type hstore. A feature without a level has that of a
/// relation with type=level that it is a member of.
OsmTags osmTagsOf(const boost::json::object& properties, OsmData& data);

}  // namespace orivanta::importer
