// The geometry of the building: concentric oval bands, and the outlines of rooms in them.
//
// A position in the oval is given by its depth, in meters from the facade toward the center, and by
// its bearing, in degrees counterclockwise from the east. At depth 0 the oval is 184 m long and 128
// m wide. From the facade inward: the outer shops, the ring corridor, the island shops, the
// gallery, and the atrium (on the lower floors, gallery and atrium together form the court).
#pragma once

#include <vector>

#include "Apps/Package/Geometry.hpp"

namespace orivanta::demo {

using package::circle;
using package::grown;
using package::Outline;
using package::Point;
using package::rectangle;

inline constexpr double corridorDepth = 18.0;  ///< end of the outer shops, start of the corridor
inline constexpr double islandDepth = 28.0;    ///< end of the corridor, start of the islands
inline constexpr double galleryDepth = 40.0;   ///< end of the islands, start of the gallery
inline constexpr double atriumDepth = 46.0;    ///< end of the gallery, start of the atrium

/// The point of the oval at a depth and a bearing in degrees.
Point at(double depth, double bearing);

/// The points of the oval at a depth from one bearing to another, every two degrees.
std::vector<Point> arc(double depth, double from, double to);

/// A part of a band, starting at the outer depth, with bearings in counterclockwise order.
Outline sector(double outerDepth, double innerDepth, double from, double to);

/// The whole oval inside a depth.
Outline oval(double depth);

/// The oval at a depth as a walking line, with points a few meters apart.
std::vector<Point> ovalLine(double depth);

/// The outline mirrored at the east-west axis.
Outline mirrored(const Outline& outline);

/// The shape of a place: its outline, its doors on the outline, and a point inside.
struct Shape {
  Outline outline;
  std::vector<Point> doors;  ///< empty for an open area, such as a terrace
  Point inside;
};

/// A shop between the facade and the ring corridor, with a door in the middle of its front.
Shape outer(double from, double to);
enum class Front { corridor, gallery, both };

/// A shop on an island, between the ring corridor and the gallery.
Shape island(double from, double to, Front front = Front::corridor);

/// A freestanding round kiosk; its counter faces the bearing.
Shape kiosk(Point middle, double radius, double bearing);

/// A freestanding rectangular room with a door.
Shape room(const Outline& outline, Point door, Point inside);

/// An open area without walls or doors.
Shape ground(const Outline& outline, Point inside);

/// The block in the west: an arc along the corridor, straight along the street.
Outline westBlock();

// The same block with an aisle from the corridor to a hall at the back, and a wing on either side.
Outline westAisle();
Shape westHall();
Shape westWingNorth();
Shape westWingSouth();

}  // namespace orivanta::demo
