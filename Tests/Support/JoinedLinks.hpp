// The links of a loaded venue as plain JSON, so that a test can compare a complete join.
#pragma once

#include <boost/json/object.hpp>

#include "Source/Venue.hpp"

namespace orivanta::test {

/// The identifiers of the records that each record is linked with. Lists are in link order, except
/// for the maps of vortices, which are sorted:
///   {"categories": {id: {"parents": [], "children": [], "locations": []}},
///    "locations": {id: {"categories": [], "nodes": [], "polygons": []}},
///    "polygons": {id: {"map": "", "entrances": [], "locations": []}},
///    "vortices": {id: {"maps": [], "nodes": [], "accessible": true}}}
boost::json::object joinedLinks(const Venue& venue);

/// Adds one test failure for every record whose links differ.
void expectSameLinks(const boost::json::object& actual, const boost::json::object& expected);

}  // namespace orivanta::test
