#include "Source/UI/Display/LabelLayer.hpp"

#include <algorithm>
#include <utility>

#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

constexpr double labelSize = 12;  // points
constexpr double gap = 3;         // between names, points
constexpr int mostDrawnAtOnce = 6;

graphics::Rect around(graphics::Point middle, graphics::Size size, double margin) {
  return {{middle.x - size.width / 2 - margin, middle.y - size.height / 2 - margin},
          {size.width + 2 * margin, size.height + 2 * margin}};
}

bool isOn(const Location& location, const std::shared_ptr<Map>& floor) {
  const auto floors = floorsOf(location);
  return std::find(floors.begin(), floors.end(), floor) != floors.end();
}

}  // namespace

LabelLayer::LabelLayer(std::shared_ptr<MapView> mapView, double scale)
    : mapView_(std::move(mapView)), scale_(scale) {}

void LabelLayer::reload(double scale) {
  for (Name& name : names_) show(name, false);
  names_.clear();
  scale_ = scale;
  if (!mapView_->currentMap()) return;
  for (const auto& location : *mapView_->venue->locations)
    if (isOn(*location, mapView_->currentMap()))
      names_.push_back({location, nullptr, {}, mapView_->findPosition3D(*location)});
  // A place with an area says more to people than one without.
  std::stable_partition(names_.begin(), names_.end(),
                        [](const Name& name) { return !name.location->polygons.empty(); });
}

void LabelLayer::setMarked(std::shared_ptr<Location> location) { marked_ = std::move(location); }

bool LabelLayer::arrange() {
  if (!mapView_->cameraOrbit) return false;
  mapView_->updateMarkerPositions();
  std::vector<graphics::Rect> taken = covered_;
  for (graphics::Rect& panel : taken)  // as the overlay has it, y upwards
    panel.origin.y = mapView_->overlay().size().height - panel.maxY();
  for (const auto& marker : mapView_->markers())
    if (const auto* mark = dynamic_cast<MapViewMarker2D*>(marker.get());
        mark != nullptr && !mark->hideWhenCollide.value_or(false))
      taken.push_back(around(mapView_->findPosition2D(mark->position()), mark->node->size(), 0));
  int drawn = 0;
  for (Name& name : names_) {
    const bool isWanted = name.location != marked_ && isInView(name);
    if (isWanted && !name.made) {
      if (++drawn > mostDrawnAtOnce) break;
      makeMarker(name);
    }
    show(name, isWanted && name.marker && hasRoom(name, taken));
  }
  mapView_->updateMarkerVisibility();
  return drawn > mostDrawnAtOnce;
}

bool LabelLayer::isInView(const Name& name) const {
  return graphics::Rect{{0, 0}, mapView_->overlay().size()}.contains(
      mapView_->findPosition2D(name.position));
}

bool LabelLayer::hasRoom(const Name& name, std::vector<graphics::Rect>& taken) const {
  const graphics::Rect frame = around(mapView_->findPosition2D(name.position), name.size, gap);
  const graphics::Size room = mapView_->overlay().size();
  const bool isWhole = frame.minX() >= 0 && frame.minY() >= 0 && frame.maxX() <= room.width &&
                       frame.maxY() <= room.height;
  const bool isFree =
      isWhole && std::none_of(taken.begin(), taken.end(),
                              [&](const graphics::Rect& other) { return other.intersects(frame); });
  if (isFree) taken.push_back(frame);
  return isFree;
}

void LabelLayer::makeMarker(Name& name) const {
  name.made = true;
  name.marker = makeLabelMarker(name.location->name.value_or(""), labelStyle(labelSize), scale_);
  if (!name.marker) return;
  name.marker->setPosition(name.position);
  name.size = name.marker->node->size();
}

void LabelLayer::show(Name& name, bool shown) {
  if (name.shown == shown) return;
  name.shown = shown;
  if (shown)
    mapView_->addMarker(name.marker);
  else
    mapView_->removeMarker(name.marker);
}

}  // namespace orivanta
