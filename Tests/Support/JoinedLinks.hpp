// The links of a loaded venue as plain JSON, to compare a whole join at once.
#pragma once

#include <boost/json/object.hpp>

#include "Source/Venue.hpp"

namespace orivanta::test {

/// Identifiers of what each record is linked with, lists in link order, the maps of vortices
/// sorted:
///   {"categories": {id: {"parents": [], "children": [], "locations": []}},
///    "locations": {id: {"categories": [], "nodes": [], "polygons": []}},
///    "polygons": {id: {"map": "", "entrances": [], "locations": []}},
///    "vortices": {id: {"maps": [], "nodes": [], "accessible": true}}}
boost::json::object joinedLinks(const Venue& venue);

/// Fails the test once for every record whose links differ.
void expectSameLinks(const boost::json::object& actual, const boost::json::object& expected);

}  // namespace orivanta::test
