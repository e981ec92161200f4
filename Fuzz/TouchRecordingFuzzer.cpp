// Plays the input as a touch recording on the map view of a small floor. The camera must stay
// within its limits.
#include <array>
#include <cmath>
#include <numbers>
#include <sstream>
#include <string>
#include <string_view>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Render/TouchRecording.hpp"
#include "Fuzz/Fuzzer.hpp"
#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Source/Map.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {
namespace {

RawData json(std::string_view text) { return *RawData::parse(text); }

std::shared_ptr<scene::Node> square(const char* name, double side) {
  const std::array<graphics::Point, 4> corners{{{0, 0}, {side, 0}, {side, side}, {0, side}}};
  const auto shape = scene::Node::make();
  shape->setName(name);
  shape->setGeometry(scene::makeExtrusion(corners, 2));
  return shape;
}

std::shared_ptr<MapView> smallFloor() {
  const auto floor = Map::make(json(R"({"id": "g", "name": "Ground floor"})"));
  floor->mapObject = scene::Node::make();
  floor->mapObject->addChild(square("Ground", 1000));
  floor->mapObject->addChild(square("cafe", 500));
  const auto venue = Venue::make(json(R"({"id": "v", "slug": "v", "name": "V"})"));
  venue->maps.emplace({floor});
  venue->polygonDictionary.emplace();
  venue->polygonDictionary->insert({"cafe", Polygon::make(json(R"({"id": "cafe"})"))});
  auto mapView = MapView::make({{0, 0}, {800, 800}});
  mapView->venue = venue;
  mapView->layoutIfNeeded();
  mapView->startScene();
  mapView->addMarker(std::make_shared<MapViewMarker2D>(graphics::Size{20, 20}, nullptr));
  return mapView;
}

void checkCamera(const MapView& mapView) {
  const auto orbit = mapView.cameraOrbit->position();
  const auto angles = mapView.cameraOrbit->eulerAngles();
  const float distance = mapView.cameraOrbit->children().front()->position().z;
  for (const float value : {orbit.x, orbit.y, orbit.z, angles.x, angles.y, angles.z, distance})
    ORIVANTA_REQUIRE(std::isfinite(value));
  ORIVANTA_REQUIRE(angles.x >= 0 && angles.x < std::numbers::pi_v<float> / 3);
  ORIVANTA_REQUIRE(distance > 0);
}

void playRecording(std::string_view input) {
  foundation::setDiagnosticSink([](std::string_view) {});
  std::istringstream file{std::string(input)};
  try {
    const auto touches = readTouches(file, "touches");
    for (const bool together : {false, true}) {
      const auto mapView = smallFloor();
      mapView->allowsSimultaneousGestures = together;
      replay(touches, mapView);
      checkCamera(*mapView);
    }
  } catch (const CommandError&) {
    return;  // the line is not a touch
  }
}

}  // namespace
}  // namespace orivanta::command

ORIVANTA_FUZZER(TouchRecording, orivanta::command::playRecording)
