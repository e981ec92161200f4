// The building's own geometry: an oval in bands, and the outlines of rooms cut out of them.
//
// A place in the oval is named by its depth, the meters from the façade towards the middle, and by
// its bearing, in degrees counter-clockwise from the east. At depth 0 the oval is 184 m long and
// 128 m wide. From the façade inwards: the outer shops, the ring corridor, the island shops, the
// gallery, and the atrium (on the lower floors gallery and atrium together are the court).
#pragma once

#include <vector>

#include "Apps/DemoVenue/Geometry.hpp"

namespace orivanta::demo {

inline constexpr double corridorDepth = 18.0;  ///< outer shops end, the ring corridor begins
inline constexpr double islandDepth = 28.0;    ///< the corridor ends, the islands begin
inline constexpr double galleryDepth = 40.0;   ///< the islands end, the gallery begins
inline constexpr double atriumDepth = 46.0;    ///< the gallery ends, the atrium begins

/// The point of the oval at a depth and a bearing in degrees.
Point at(double depth, double bearing);

/// The points of the oval at a depth from one bearing to another, at every second degree between.
std::vector<Point> arc(double depth, double from, double to);

/// A part of a band: the nearer depth first, bearings counter-clockwise.
Outline sector(double outerDepth, double innerDepth, double from, double to);

/// The whole oval inside a depth.
Outline oval(double depth);

/// The oval at a depth with points a few meters apart, to walk along.
std::vector<Point> ovalLine(double depth);

/// The outline seen in the east-west axis as in a mirror.
Outline mirrored(const Outline& outline);

/// A place to go to: its outline, its doors on the outline, and where one stands inside.
struct Shape {
  Outline outline;
  std::vector<Point> doors;  ///< empty for a place one walks onto, such as a terrace
  Point inside;
};

/// A shop between façade and ring corridor, its door in the middle of its front.
Shape outer(double from, double to);
enum class Front { Corridor, Gallery, Both };

/// A shop on an island, between ring corridor and gallery.
Shape island(double from, double to, Front front = Front::Corridor);

/// A free-standing round kiosk; its counter faces the bearing.
Shape kiosk(Point middle, double radius, double bearing);

/// A free-standing rectangular room with a door.
Shape room(const Outline& outline, Point door, Point inside);

/// Somewhere to walk onto, without walls or doors.
Shape ground(const Outline& outline, Point inside);

/// The block in the west: an arc along the corridor, square to the street.
Outline westBlock();

// The same block with an aisle from the corridor to a hall at the back, and a wing on either side.
Outline westAisle();
Shape westHall();
Shape westWingNorth();
Shape westWingSouth();

}  // namespace orivanta::demo
