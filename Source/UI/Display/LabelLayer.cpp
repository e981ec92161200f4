#include "Source/UI/Display/LabelLayer.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Graphics/Changes.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

constexpr double labelSize = 12;  // points
constexpr double gap = 3;         // between labels, points
constexpr int mostDrawnAtOnce = 6;

graphics::Rect around(graphics::Point middle, graphics::Size size, double margin) {
  return {{middle.x - size.width / 2 - margin, middle.y - size.height / 2 - margin},
          {size.width + 2 * margin, size.height + 2 * margin}};
}

}  // namespace

LabelLayer::LabelLayer(std::shared_ptr<MapView> mapView, double scale)
    : mapView_(std::move(mapView)), scale_(scale) {}

LabelLayer::~LabelLayer() { clear(); }

void LabelLayer::clear() {
  for (Name& name : names_) show(name, false);
  names_.clear();
}

void LabelLayer::setScale(double scale) {
  if (scale == scale_) return;
  scale_ = scale;
  model_ = nullptr;
  arrangedChange_ = 0;
}

void LabelLayer::setMarked(std::vector<std::shared_ptr<Location>> places) {
  marked_ = std::move(places);
  arrangedChange_ = 0;
}

void LabelLayer::setCovered(std::vector<graphics::Rect> covered) {
  covered_ = std::move(covered);
  arrangedChange_ = 0;
}

void LabelLayer::reload() {
  clear();
  const auto& floor = mapView_->currentMap();
  model_ = floor ? floor->mapObject : nullptr;
  if (!floor || !mapView_->venue || !mapView_->venue->locations) return;
  for (const auto& location : *mapView_->venue->locations)
    if (isOnFloor(*location, *floor))
      names_.push_back({location, mapView_->findPosition3D(*location), nullptr, {}});
  std::stable_partition(names_.begin(), names_.end(),
                        [](const Name& name) { return !name.location->polygons.empty(); });
}

bool LabelLayer::arrange() {
  if (!mapView_->cameraOrbit || arrangedChange_ == graphics::changeCount()) return false;
  if (mapView_->currentMap() && mapView_->currentMap()->mapObject != model_) reload();
  mapView_->updateMarkerPositions();
  std::vector<graphics::Rect> taken = takenRoom();
  int drawn = 0;
  for (Name& name : names_) {
    const bool isWanted = !isMarked(*name.location) && isInView(name);
    if (isWanted && !name.made) {
      if (++drawn > mostDrawnAtOnce) break;
      makeMarker(name);
    }
    show(name, isWanted && name.marker && hasRoom(name, taken));
  }
  mapView_->updateMarkerVisibility();
  const bool isDone = drawn <= mostDrawnAtOnce;
  arrangedChange_ = isDone ? graphics::changeCount() : 0;
  return !isDone;
}

bool LabelLayer::isMarked(const Location& location) const {
  return std::any_of(marked_.begin(), marked_.end(),
                     [&](const auto& marked) { return marked.get() == &location; });
}

// Returns the covered rectangles and the frames of markers that are not hidden on collision, in
// overlay coordinates.
std::vector<graphics::Rect> LabelLayer::takenRoom() const {
  std::vector<graphics::Rect> taken = covered_;
  for (graphics::Rect& panel : taken)
    panel.origin.y = mapView_->overlay().size().height - panel.maxY();
  for (const auto& marker : mapView_->markers())
    if (const auto* mark = dynamic_cast<MapViewMarker2D*>(marker.get());
        mark != nullptr && !mark->hideWhenCollide.value_or(false))
      taken.push_back(around(mapView_->findPosition2D(mark->position()), mark->node->size(), 0));
  return taken;
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
  name.marker =
      makeLabelMarker(labelName(*mapView_->venue, *name.location), labelStyle(labelSize), scale_);
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
