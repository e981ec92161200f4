// What people do with fingers, the wheel and keys.
#include <algorithm>
#include <cmath>

#include "Apps/Viewer/Viewer.hpp"

namespace orivanta::viewer {

using view::TouchPhase;

namespace {

constexpr double wheelZoom = 1.18;  // per step
constexpr double wheelScroll = 60;  // points per step

// Returns the list at a point, or null.
List* listAt(view::View& root, graphics::Point point) {
  for (view::View* at = root.viewAt(point).get(); at != nullptr; at = at->superview())
    if (auto* list = dynamic_cast<List*>(at)) return list;
  return nullptr;
}

bool isBack(const KeyPress& press) { return press.key == Key::escape || press.key == Key::back; }

}  // namespace

MapCamera* Viewer::cameraAt(graphics::Point point) const {
  if (!venueView_ || !venueView_->camera().isReady()) return nullptr;
  const auto under = root_->viewAt(point);
  return under == venueView_->mapView().sceneView ? &venueView_->camera() : nullptr;
}

void Viewer::touch(std::span<const view::Touch> touches) {
  for (const view::Touch& touch : touches) {
    if (touch.phase == TouchPhase::began) focus_.clear();
    if (touch.phase != TouchPhase::began || cameraAt(touch.position) == nullptr) continue;
    mapFingers_.push_back(touch.identifier);
    venueView_->camera().touchBegan();
  }
  fingers_.dispatch(touches);
  if (mapFingers_.empty()) return;
  for (const view::Touch& touch : touches)
    if (touch.phase == TouchPhase::ended || touch.phase == TouchPhase::canceled)
      std::erase(mapFingers_, touch.identifier);
  if (!venueView_) return;
  if (mapFingers_.empty())
    venueView_->camera().touchEnded();
  else
    venueView_->camera().touchMoved();
}

void Viewer::cancelTouches(double time) {
  pointer_.cancel(time);
  fingers_.cancelAll(time);
  if (!mapFingers_.empty() && venueView_) venueView_->camera().touchEnded();
  mapFingers_.clear();
}

void Viewer::wheel(graphics::Point at, double steps) {
  if (List* list = listAt(*root_, at)) return list->scrollBy(-steps * wheelScroll);
  if (MapCamera* camera = cameraAt(at))
    camera->zoomBy(std::pow(wheelZoom, steps), at, CameraMotion::glide);
}

void Viewer::keyPressed(const KeyPress& press) {
  if (press.key == Key::picture) {
    takePicture();
    return;
  }
  if (focus_.handleKey(press, focusAreas())) return;
  if (!message_->isHidden()) {
    if (press.key == Key::enter && message_->retried) message_->retried();
    if (isBack(press) && message_->dismissed) message_->dismissed();
    return;
  }
  if (!venueList_->isHidden()) {
    if (press.key == Key::up || press.key == Key::down)
      venueList_->moveMark(press.key == Key::down ? 1 : -1);
    if (press.key == Key::enter) venueList_->chooseMarked();
    return;
  }
  if (venueView_ && veil_->isHidden() && venueView_->handleKey(press)) return;
  if (press.key == Key::escape && focus_.clear()) return;
  if (isBack(press)) goBack();
}

void Viewer::textTyped(std::string_view text) {
  if (!wantsText() && changeLook(text)) return;
  if (showsMap() && venueView_->handleText(text)) return;
  if (text == "s" || text == "S") takePicture();
}

void Viewer::textComposed(std::string_view text) {
  if (wantsText()) venueView_->panels().search->field().setComposition(std::string(text));
}

bool Viewer::wantsText() const { return venueView_ && venueView_->panels().search->isOpen(); }

std::optional<graphics::Rect> Viewer::textPlace() const {
  if (!wantsText()) return std::nullopt;
  const view::View& field = venueView_->panels().search->field();
  return graphics::Rect{field.convert({0, 0}, *root_), field.bounds().size};
}

}  // namespace orivanta::viewer
