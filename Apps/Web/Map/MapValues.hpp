// Reads the values of what a page asks of a map. They are nothing, or null, if the page passes
// something else.
#pragma once

#include <boost/json/object.hpp>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Web/LoadedVenue.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/MapCamera.hpp"

namespace orivanta::web {

/// Returns the member of an object; null if it has none, or if the value is no object.
const boost::json::value& memberOf(const boost::json::value& value, const char* name);

/// Returns a finite number.
std::optional<double> numberOf(const boost::json::value& value);

/// Returns a text; "" if it is none.
std::string textOf(const boost::json::value& value);

/// Returns whether a value is true.
bool isTrue(const boost::json::value& value);

/// Returns the finite numbers of an array; an empty list if it has anything else.
std::vector<double> numbersOf(const boost::json::value& value);

/// Returns a position: an array of x, y and z.
std::optional<graphics::Vector3> positionOf(const boost::json::value& value);

/// Returns a color: an array of red, green, blue and alpha.
std::optional<graphics::Color> colorOf(const boost::json::value& value);

/// Returns the motion that `glide` selects.
CameraMotion motionOf(const boost::json::value& value);

/// Returns the floor with an index, or null.
std::shared_ptr<Map> floorOf(const LoadedVenue& venue, const boost::json::value& value);

/// Returns the place or the connector with an identifier, or null.
std::shared_ptr<Location> placeOf(const LoadedVenue& venue, const boost::json::value& value);

}  // namespace orivanta::web
