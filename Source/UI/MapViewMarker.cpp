#include "Source/UI/MapViewMarker.hpp"

namespace orivanta {

bool MapViewMarker::collidesWithMarker(const MapViewMarker&) const { return false; }

}  // namespace orivanta
