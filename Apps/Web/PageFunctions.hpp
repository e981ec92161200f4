// The functions that the page defines, in PageFunctions.js.
#pragma once

#include <cstddef>

extern "C" {

/// Asks the page to call `orivantaRunTurn` in a later turn of its event loop.
void orivantaRequestTurn();

/// Reports the progress of a load: collections, pages and bytes.
void orivantaLoadProgressed(int load, double done, double count, double pages, double bytes);

/// Reports the end of a load, once, with a JSON object, see `Loading.hpp`. The text is valid during
/// the call.
void orivantaLoadEnded(int load, const char* text, std::size_t length);
}
