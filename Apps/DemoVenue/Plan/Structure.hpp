// What the floors have in common: the ring, the passages, the court or the gallery.
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

/// Appends the places of each part, in order.
void addPlaces(Floor& floor, std::initializer_list<std::vector<Place>> parts);

/// The ring corridor and the four passages inwards: walkways and lines.
void addRing(Floor& floor);

/// The aisle of the department store.
void addStore(Floor& floor);

/// The whole middle of the floor as one open court around the great astrolabe.
void addCourt(Floor& floor);

/// The gallery around the atrium, a bridge across, and the atrium's two voids.
void addGallery(Floor& floor);

/// The floor's own plate: the oval around the atrium, in pieces, and the bridge.
void addRingSlab(Floor& floor);

/// The square before an entrance, from the façade between two bearings out to a line.
Outline squareNorth();
Outline squareSouth();
Outline squareEast();

/// A way in through the outer shops, four degrees to either side.
Outline lobby(double bearing);

}  // namespace orivanta::demo
