// What a page asks of a map.
#pragma once

#include <boost/json/object.hpp>
#include <string_view>

#include "Apps/Web/Map/MapHost.hpp"

namespace orivanta::web {

/// Carries out the members of a JSON object, in their order, and returns the state of the map.
/// Members that are unknown or have values of another type are ignored. Places, connectors and
/// closures are named by identifiers, floors and nodes by their indices. Positions are arrays of x,
/// y and z in scene units, angles are radians. A member with `glide` moves the camera with an
/// animation if it is true.
///
/// - `look`: see `MapLook`; `floor`; `stacked`; `reload` (loads the floors again, with any value)
/// - `pose`: `x`, `y`, `z`, `distance`, `tilt`, `turn`, all optional, and `glide`
/// - `fit`: `glide` and `place`, `points` (positions), `route` (true), or nothing for the floor
/// - `firstView`: `glide`; `north`: `glide`; `zoomBy`: `factor`, `x`, `y` (points) and `glide`
/// - `panBy`: `right`, `up` (points) and `glide`; `turnBy` and `tiltBy`: `angle` and `glide`
/// - `insets`: `left`, `top`, `right`, `bottom`; `covered`: arrays of x, y, width and height
/// - `route`: `nodes`, `from`, `to`, `stops` (`index` and `place`) and `color`, or null for none
/// - `passed`: `floor` and `position`, or null; `select`: a place, or null; `closures`: an array
/// - `highlight`: `place` and `color` (red, green, blue, alpha from 0 to 1); `clearHighlights`
/// - `marker`: `number`, `place` or `position` and `floor`, `text`, `color`; `removeMarker`: a
/// number
/// - `position`: `floor`, `position`, `accuracy` (meters), `heading`, or null; `follow`
///
/// The state has `floor`, `awaited` (the floor that is shown as soon as it is loaded, or -1),
/// `stacked`, `follow`, `loaded`, `ready`, `pose` (as above), `target` (the pose at the end of an
/// animation) and `pointsPerUnit` (in the middle of the canvas).
boost::json::object carryOut(MapHost& map, std::string_view commands);

/// Returns the point of the canvas at which a position of the shown floor appears.
graphics::Point pointOf(MapHost& map, graphics::Vector3 position);

}  // namespace orivanta::web
