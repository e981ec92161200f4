// The functions that the page defines for maps, in PageFunctions.js.
#pragma once

#include <cstddef>

extern "C" {

/// Asks the page to call `orivantaMapFrame` when it draws its next frame. Further calls until then
/// do nothing.
void orivantaMapWantsFrame(int map);

/// Reports an event of a map with a JSON object, see `MapEvents.hpp`. The text is valid during the
/// call.
void orivantaMapEvent(int map, const char* text, std::size_t length);
}
