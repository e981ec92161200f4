// The functions of maps that the page calls. See Exports.cpp for texts and results.
#include <emscripten/emscripten.h>

#include <boost/json/serialize.hpp>
#include <string>

#include "Apps/Web/Map/MapCommands.hpp"
#include "Apps/Web/Map/MapTable.hpp"
#include "Apps/Web/Results.hpp"
#include "Apps/Web/VenueTable.hpp"
#include "Source/Venue.hpp"

namespace {

namespace web = orivanta::web;

web::MapTable& maps() { return web::MapTable::shared(); }

}  // namespace

extern "C" {

// Makes a map of a venue on a canvas. Returns its number, 0 if the browser does not support WebGL
// 2, or -1 if the venue has a map already.
EMSCRIPTEN_KEEPALIVE int orivantaOpenMap(int venue, int canvas) {
  web::LoadedVenue& loaded = web::VenueTable::shared().at(venue);
  return maps().shows(loaded) ? -1 : maps().add(loaded, canvas);
}

// Starts to load the floors, see `MapHost::load`. `first`: an index, or -1.
EMSCRIPTEN_KEEPALIVE void orivantaLoadMap(int map, int first) {
  const auto found = maps().find(map);
  if (!found) return;
  const auto& floors = *found->venue().venue().maps;
  const auto index = static_cast<std::size_t>(first);
  found->load(first >= 0 && index < floors.size() ? floors[index] : nullptr);
}

EMSCRIPTEN_KEEPALIVE void orivantaCloseMap(int map) { maps().remove(map); }

// Draws a frame. Width and height are in points, the time is in seconds.
EMSCRIPTEN_KEEPALIVE void orivantaMapFrame(int map, double width, double height, double scale,
                                           double time) {
  if (const auto found = maps().find(map)) found->frame({{width, height}, scale}, time);
  maps().requestFrames();
}

// Passes what a pointer does. `device` is a `PointerDevice`, `phase` a `TouchPhase`.
EMSCRIPTEN_KEEPALIVE void orivantaMapPointer(int map, int device, int phase, int pointer,
                                             int clicks, double x, double y, double time) {
  if (const auto found = maps().find(map))
    found->input().point(static_cast<web::PointerDevice>(device),
                         {static_cast<std::uint64_t>(pointer),
                          static_cast<orivanta::view::TouchPhase>(phase),
                          {x, y},
                          time},
                         clicks);
  maps().requestFrames();
}

EMSCRIPTEN_KEEPALIVE void orivantaMapWheel(int map, double x, double y, double steps, int isPinch) {
  if (const auto found = maps().find(map)) found->input().turnWheel({x, y}, steps, isPinch != 0);
  maps().requestFrames();
}

// Cancels what pointers do, for example because the page loses the input.
EMSCRIPTEN_KEEPALIVE void orivantaMapCancel(int map, double time) {
  if (const auto found = maps().find(map)) found->input().cancel(time);
  maps().requestFrames();
}

// To be called when the canvas has lost its context, and when it has one again.
EMSCRIPTEN_KEEPALIVE void orivantaMapContext(int map, int isThere) {
  const auto found = maps().find(map);
  if (!found) return;
  isThere != 0 ? found->contextRestored() : found->contextLost();
  maps().requestFrames();
}

// Draws the names anew, for example because a font was loaded.
EMSCRIPTEN_KEEPALIVE void orivantaMapRedrawTexts(int map) {
  if (const auto found = maps().find(map)) found->redrawTexts();
  maps().requestFrames();
}

// Carries out commands and returns the state of the map, see `carryOut`.
EMSCRIPTEN_KEEPALIVE const char* orivantaMapDo(int map, const char* text, std::size_t length) {
  const auto found = maps().find(map);
  if (!found) return web::textResult("{}");
  const char* state =
      web::textResult(boost::json::serialize(web::carryOut(*found, {text, length})));
  maps().requestFrames();
  return state;
}

// Completes the floor that is shown, so that the next frame has everything.
EMSCRIPTEN_KEEPALIVE void orivantaMapFinish(int map) {
  if (const auto found = maps().find(map)) found->style().finish();
  maps().requestFrames();
}

// Returns x and y of a position of the shown floor on the canvas.
EMSCRIPTEN_KEEPALIVE const double* orivantaMapPoint(int map, double x, double y, double z) {
  const auto found = maps().find(map);
  if (!found) return web::numbersResult({});
  const auto at =
      web::pointOf(*found, {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)});
  return web::numbersResult({at.x, at.y});
}
}
