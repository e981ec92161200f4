// The parts that floors have in common: the ring, the passages, the court or the gallery.
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

/// Appends the places of each part, in order.
void addPlaces(Floor& floor, std::initializer_list<std::vector<Place>> parts);

/// Adds the ring corridor and the four passages inward: walkways and lines.
void addRing(Floor& floor);

/// Adds the aisle of the department store.
void addStore(Floor& floor);

/// Adds the center of the floor as one open court around the large astrolabe.
void addCourt(Floor& floor);

/// Adds the gallery around the atrium, a bridge across it, and its two voids.
void addGallery(Floor& floor);

/// Adds the floor plate: the oval around the atrium, in pieces, and the bridge.
void addRingSlab(Floor& floor);

/// The square in front of an entrance: from the facade between two bearings to a straight line.
Outline squareNorth();
Outline squareSouth();
Outline squareEast();

/// An entrance through the outer shops, four degrees to either side of the bearing.
Outline lobby(double bearing);

}  // namespace orivanta::demo
